#include "slides/show_document.h"

#include "foundation/code_page.h"
#include "foundation/ini_store.h"
#include "foundation/ini_text.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QString Setup = QStringLiteral("Setup");
const QString Imagens = QStringLiteral("Imagens");
const QString Quebra = QStringLiteral("<br>");
const QString Barra = QStringLiteral("\\");
const QString BarraDobrada = QStringLiteral("\\\\");

} // namespace

SlideShowDocument LeSlideShow(const QString &path) {
  const IniSnapshot ini(path);
  const auto texto = [&ini](const char16_t *chave, const char16_t *padrao = u"") {
    return ini.Read(Setup, QString::fromUtf16(chave), QString::fromUtf16(padrao));
  };
  SlideShowDocument show;
  show.Tempo = WholeNumber<qint16>(texto(u"Tempo", u"5000"));
  show.TempoIntevalo = WholeNumber<qint16>(texto(u"TempoIntevalo", u"2000"));
  show.TempoIntevaloSaida = WholeNumber<qint16>(texto(u"TempoIntevaloSaida", u"2000"));
  show.ArquivodeAudio = texto(u"ArquivodeAudio");
  show.textoInicio = texto(u"textoInicio");
  show.textoFim = texto(u"textoFim");
  const int total = WholeNumber<qint16>(ini.Read(Imagens, QStringLiteral("totalImagens"), QStringLiteral("0")));
  for (int i = 1; i <= total; ++i)
    if (const QString imagem = ini.Read(Imagens, u"Imagem" + QString::number(i), QString()); !imagem.isEmpty())
      show.imagens.append(imagem);
  return show;
}

bool EscreveSlideShow(const QString &path, const SlideShowDocument &show) {
  QString texto;
  const auto secao = [&texto](const QString &nome) { texto += u'[' + nome + u']' + CRLF; };
  const auto grava = [&texto](const QString &chave, const QString &valor) {
    texto += chave + u'=' + QuotedIniValue(QString(valor).remove(u'\r').remove(u'\n')) + CRLF;
  };
  secao(Setup);
  grava(QStringLiteral("Titulo"), show.Titulo);
  grava(QStringLiteral("Tempo"), QString::number(show.Tempo));
  grava(QStringLiteral("TempoIntevalo"), QString::number(show.TempoIntevalo));
  grava(QStringLiteral("TempoIntevaloSaida"), QString::number(show.TempoIntevaloSaida));
  if (!show.ArquivodeAudio.isEmpty())
    grava(QStringLiteral("ArquivodeAudio"), show.ArquivodeAudio);
  grava(QStringLiteral("textoInicio"), show.textoInicio);
  grava(QStringLiteral("textoFim"), show.textoFim);
  secao(Imagens);
  int total = 0;
  for (const QString &imagem : show.imagens) {
    if (imagem.isEmpty())
      break;
    grava(u"Imagem" + QString::number(++total), imagem);
  }
  grava(QStringLiteral("totalImagens"), QString::number(total));
  return WriteFileAtomically(path, EncodeText(texto));
}

QString CaminhoDoSlideShow(const AppFolder &app, const QString &nome) {
  return app.At(u"\\SlideShow\\") + nome + u".sw";
}

QString CaminhoDoShowSemNome() {
  return TempFolder() + u"\\Sem Titulo.sw";
}

QString TextoParaOShow(const QString &digitado) {
  return QString(digitado).trimmed().replace(QStringLiteral("\r\n"), Quebra).replace(u'\r', Quebra).replace(u'\n', Quebra);
}

QString TextoParaACaixa(const QString &guardado) {
  return QString(guardado).replace(Quebra, CRLF.toString(), Qt::CaseInsensitive);
}

QString AudioParaOShow(const QString &path) {
  return QString(path).replace(Barra, BarraDobrada);
}

QString AudioParaACaixa(const QString &guardado) {
  return QString(guardado).replace(BarraDobrada, Barra);
}

} // namespace tolmira
