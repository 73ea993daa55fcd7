#include "media/web_video_search.h"

#include "display/page_template.h"
#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"
#include "media/video_site.h"
#include "web/cut_text.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace tolmira {

namespace {

constexpr QStringView NomeDaPagina = u"\\html\\pesquisaY.html";
constexpr qsizetype MaioresDados = 4 * 1024 * 1024; // characters; the site sends one or two million
constexpr qsizetype MaiorTitulo = 200;
constexpr QChar QuebraDeEmbed{0x2060}; // a word joiner, which py.dat puts into the word "embed" of a title
const QString Vazio = QStringLiteral("{}");

// Only characters of ASCII that mean nothing to a page; the others can only stand inside the strings of the text.
QString ParaScript(const QString &json) {
  static constexpr char16_t Digitos[] = u"0123456789abcdef";
  QString texto;
  texto.reserve(json.size() + json.size() / 8);
  for (const QChar c : json) {
    const char16_t codigo = c.unicode();
    if (codigo < 0x7f && c != u'<' && c != u'>' && c != u'&') {
      texto += c;
      continue;
    }
    texto += u"\\u";
    for (int casa = 12; casa >= 0; casa -= 4)
      texto += QChar(Digitos[(codigo >> casa) & 0xf]);
  }
  return texto;
}

// Each escape is a byte of UTF-8, or of windows-1252 where they are none together.
QString Decodifica(const QString &texto) {
  const QString letras = UrlDecode(texto);
  QByteArray bytes;
  for (const QChar letra : letras)
    bytes += static_cast<char>(ByteOfCharacter(letra.unicode()));
  return DecodeText(bytes).text;
}

QString SemMarcas(QString texto) {
  return texto.replace(QStringLiteral("*|"), QStringLiteral("\""));
}

QString Ate(const QString &texto, qsizetype inicio, QStringView finais) {
  qsizetype fim = inicio;
  while (fim < texto.size() && !finais.contains(texto.at(fim)))
    ++fim;
  return texto.mid(inicio, fim - inicio);
}

} // namespace

QString DadosDaPesquisa(QStringView pagina) {
  const QString cortado = CutBetween(pagina, u"var ytInitialData =", u"</script>");
  if (cortado.isEmpty() || cortado.size() > MaioresDados)
    return Vazio;
  // Behind the object stands the end of the statement.
  const QJsonDocument dados = QJsonDocument::fromJson(QStringView(cortado).chopped(1).trimmed().toUtf8());
  return dados.isObject() ? ParaScript(QString::fromUtf8(dados.toJson(QJsonDocument::Compact))) : Vazio;
}

QString MontaPaginaDaPesquisa(const AppFolder &app, const QString &dados, const QString &site) {
  const QString modelo = LeModelo(app, QStringLiteral("py.dat"));
  if (modelo.isEmpty())
    return {};
  Preenchimento p;
  p.Define(u"resultadoJson", dados);
  p.Define(u"site", ParaScript(QString(site).remove(u'"').remove(u'\\')));
  const QString caminho = app.At(NomeDaPagina);
  return WriteFileAtomically(caminho, EncodePage(p.Preenche(modelo))) ? caminho : QString();
}

void RemovePaginaDaPesquisa(const AppFolder &app) {
  QFile::remove(MapStoredPath(app.At(NomeDaPagina)).text());
}

EscolhaDeVideo LeEscolhaDeVideo(const QString &endereco) {
  EscolhaDeVideo escolha;
  const qsizetype titulo = endereco.indexOf(u"titulo=");
  if (titulo >= 0) {
    const QString guardado = Ate(endereco, titulo + 7, u"&");
    // Between "|#|" an agenda has the fields of an entry.
    escolha.titulo = SemMarcas(Decodifica(SemMarcas(guardado)))
                         .replace(QStringLiteral("|#"), QStringLiteral(" "))
                         .remove(QuebraDeEmbed)
                         .simplified()
                         .left(MaiorTitulo);
    if (escolha.titulo == u"Undefined")
      escolha.titulo.clear();
  }
  const qsizetype v = endereco.indexOf(u"v=");
  if (endereco.indexOf(u"embed") >= 1) {
    escolha.acao = EscolhaDeVideo::Acao::Tocar;
    const qsizetype embed = endereco.indexOf(u"embed/");
    if (embed >= 0)
      escolha.id = Ate(endereco, embed + 6, u"?&#/");
  } else if (v >= 1) {
    escolha.acao = EscolhaDeVideo::Acao::Adicionar;
    escolha.id = Ate(endereco, v + 2, u"&");
  }
  return EhIdDeVideo(escolha.id) ? escolha : EscolhaDeVideo();
}

} // namespace tolmira
