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
constexpr qsizetype MaioresDados = 8 * 1024 * 1024; // characters
constexpr qsizetype MaiorTitulo = 200;
const QString Vazio = QStringLiteral("{}");

// Only characters of ASCII that mean nothing to a page; the others can only stand inside the strings of the text.
QString ParaScript(const QString &json) {
  QString texto;
  texto.reserve(json.size() + json.size() / 8);
  for (const QChar c : json) {
    const char16_t codigo = c.unicode();
    if (codigo < 0x7f && c != u'<' && c != u'>' && c != u'&')
      texto += c;
    else
      texto += QString(u"\\u" + QString::number(codigo, 16).rightJustified(4, u'0'));
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
    escolha.titulo = SemMarcas(Decodifica(SemMarcas(guardado))).simplified().left(MaiorTitulo);
    if (escolha.titulo == u"Undefined")
      escolha.titulo.clear();
  }
  // "embed" may also stand in a title, where no id is behind it.
  const qsizetype embed = endereco.indexOf(u"embed/");
  if (embed >= 1) {
    escolha.id = Ate(endereco, embed + 6, u"?&#/");
    if (EhIdDeVideo(escolha.id)) {
      escolha.acao = EscolhaDeVideo::Acao::Tocar;
      return escolha;
    }
  }
  const qsizetype v = endereco.indexOf(u"v=");
  if (v >= 1) {
    escolha.id = Ate(endereco, v + 2, u"&");
    if (EhIdDeVideo(escolha.id)) {
      escolha.acao = EscolhaDeVideo::Acao::Adicionar;
      return escolha;
    }
  }
  return {};
}

} // namespace tolmira
