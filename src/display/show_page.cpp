#include "display/show_page.h"

#include "display/page_template.h"
#include "foundation/code_page.h"
#include "foundation/real_path.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <QHash>
#include <QRegularExpression>
#include <QUrl>
#include <functional>

namespace tolmira {

namespace {

constexpr int Efeitos = 10;

// A stored path for the attribute `src`. The gallery's answer joins paths by "|".
QString EnderecoDaFoto(const QString &caminho) { return EnderecoDoArquivo(caminho).replace(u'|', QStringLiteral("%7C")); }

// For an attribute between single quotes.
QString Atributo(QString texto) {
  static const QRegularExpression referencia(QStringLiteral("&(?=[A-Za-z#])"));
  return texto.replace(referencia, QStringLiteral("&amp;")).replace(u'\'', QStringLiteral("&#39;"));
}

// A text of the show may stand in the page as HTML or in a string of a script. What a person types comes out as it is;
// of markup only line breaks and plain weights are taken for such.
QString TextoDaPagina(QString texto) {
  static const QRegularExpression semMarca(
      QStringLiteral("<(?!/?(?:br|b|i|u|em|strong|small|big|sub|sup|center)\\b[^<>\"'\\\\]*>)"),
      QRegularExpression::CaseInsensitiveOption);
  return texto.replace(semMarca, QStringLiteral("&lt;"))
      .replace(u'\\', QStringLiteral("&#92;"))
      .replace(u'"', QStringLiteral("&quot;"))
      .replace(u'\'', QStringLiteral("&#39;"));
}

// The path stands in the file with its backslashes doubled, ready for a string of a script; a file that somebody wrote
// by hand may hold lone ones.
QString AudioDaPagina(const QString &guardado) {
  QString texto;
  for (qsizetype i = 0; i < guardado.size(); ++i) {
    const QChar c = guardado[i];
    if (c == u'\\') {
      texto += QStringLiteral("\\\\");
      i += guardado.mid(i + 1, 1) == u"\\" ? 1 : 0;
    } else if (c == u'"' || c == u'\'') {
      texto += QString(u"\\" + c);
    } else {
      texto += c;
    }
  }
  return texto.replace(QStringLiteral("</"), QStringLiteral("<\\/"));
}

QString Sorteio(qsizetype quantos, RandomSource &random) {
  QStringList efeitos;
  for (qsizetype i = 0; i < quantos; ++i)
    efeitos.append(QString::number(static_cast<int>(random.Draw() * Efeitos + 1)));
  return efeitos.join(u',');
}

// Of three slashes before a path that begins with one, the engine keeps none.
QString SemPrefixo(const QString &endereco) {
  static const QRegularExpression comUnidade(QStringLiteral("^[A-Za-z]:"));
  const QStringView prefixo = u"file:///";
  if (!endereco.startsWith(prefixo, Qt::CaseInsensitive))
    return endereco;
  const QString caminho = endereco.mid(prefixo.size());
  return caminho.startsWith(u'/') || comUnidade.match(caminho).hasMatch() ? caminho : QString(u'/' + caminho);
}

QString Grava(const AppFolder &app, QStringView nome, const QString &pagina) {
  const QString caminho = app.At(nome);
  return WriteFileAtomically(caminho, EncodePage(pagina)) ? caminho : QString();
}

} // namespace

QString MontaPaginaDoShow(const AppFolder &app, const SlideShowDocument &show, RandomSource &random) {
  const QString modelo = LeModelo(app, QStringLiteral("sshow.dat"));
  if (modelo.isEmpty())
    return {};
  QString lista;
  int i = 0;
  for (const QString &imagem : show.imagens)
    lista += u"<img id='" + Atributo(FileNameOf(imagem)) + u"' src='" + EnderecoDaFoto(imagem) + u"' alt='" +
             QString::number(++i) + u"' class='img'>";
  Preenchimento p;
  p.Define(u"listaImagens", lista);
  p.Define(u"Tempo De Imagem", QString::number(show.Tempo));
  p.Define(u"Tempo de transicao", QString::number(show.TempoIntevalo));
  p.Define(u"Tempo de transicao saida", QString::number(show.TempoIntevaloSaida));
  p.Define(u"Arquivo de Audio", AudioDaPagina(show.ArquivodeAudio));
  p.Define(u"Texto de Inicio", TextoDaPagina(show.textoInicio));
  p.Define(u"Texto do Final", TextoDaPagina(show.textoFim));
  p.Define(u"Random Effect In", Sorteio(show.imagens.size(), random));
  p.Define(u"Random Effect Out", Sorteio(show.imagens.size(), random));
  return Grava(app, u"\\html\\sshow.html", p.Preenche(modelo));
}

QString carregaGaleria(const AppFolder &app, const QStringList &imagens, int alturaPx) {
  const QString modelo = LeModelo(app, QStringLiteral("galery.dat"));
  if (modelo.isEmpty())
    return {};
  QString caixas;
  int i = 0;
  for (const QString &imagem : imagens)
    caixas += u"<div draggable='true' class='box' ><img src='" + EnderecoDaFoto(imagem) + u"' alt='" +
              QString::number(++i) + u"' class='img'></div>";
  Preenchimento p;
  p.Define(u"imagens", caixas);
  p.Define(u"height", QString::number(alturaPx) + u"px");
  return Grava(app, u"\\html\\galery.html", p.Preenche(modelo));
}

RespostaDaGaleria LeRespostaDaGaleria(const QString &uri, const QStringList &imagens) {
  const QString endereco = UrlDecode(uri);
  const qsizetype corte = endereco.indexOf(u'?');
  const QStringView verbo = QStringView(endereco).left(corte < 0 ? endereco.size() : corte);
  RespostaDaGaleria resposta;
  resposta.verbo = verbo == u"http://lista//"   ? RespostaDaGaleria::Lista
                   : verbo == u"http://index//" ? RespostaDaGaleria::Indice
                                                : RespostaDaGaleria::Outro;
  if (resposta.verbo == RespostaDaGaleria::Outro || corte < 0)
    return resposta;

  // A page gives either what stands in its elements or the addresses that the engine has made of it.
  QHash<QString, QString> conhecidas;
  for (const QString &imagem : imagens) {
    const QUrl doMotor = QUrl::fromLocalFile(MapStoredPath(imagem).text());
    conhecidas.insert(UrlDecode(QString::fromLatin1(doMotor.toEncoded())), imagem);
    conhecidas.insert(EnderecoDaFoto(imagem).replace(QStringLiteral("&amp;"), QStringLiteral("&")), imagem);
  }
  for (const QString &pedaco : endereco.mid(corte + 1).split(u'|')) {
    if (pedaco.isEmpty())
      break; // behind the last picture
    const QString item = TextoRelatado(pedaco);
    const auto conhecida = conhecidas.constFind(item);
    resposta.imagens.append(conhecida != conhecidas.constEnd()
                                ? *conhecida
                                : SemPrefixo(item));
  }
  return resposta;
}

QString TextoRelatado(const QString &texto) {
  static const QRegularExpression referencia(QStringLiteral("&#(\\d{2,7});"));
  QString feito;
  qsizetype ate = 0;
  for (auto achados = referencia.globalMatch(texto); achados.hasNext();) {
    const QRegularExpressionMatch achado = achados.next();
    const char32_t ponto = achado.captured(1).toUInt();
    feito += texto.mid(ate, achado.capturedStart() - ate);
    feito += ponto <= 0x10ffff ? QString::fromUcs4(&ponto, 1) : achado.captured();
    ate = achado.capturedEnd();
  }
  return feito + texto.mid(ate);
}

} // namespace tolmira
