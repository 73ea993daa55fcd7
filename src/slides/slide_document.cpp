#include "slides/slide_document.h"

#include "foundation/code_page.h"
#include "foundation/ini_store.h"
#include "foundation/ini_text.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

#include <QSet>
#include <algorithm>
#include <functional>

namespace tolmira {

namespace {

const QString Secao = QStringLiteral("Config");
const QString QuebraGuardada = QStringLiteral("*|");
const QString QuebraDeLinha = QStringLiteral("\r\n");

// A file that promises more slides than this is believed only as far as its keys go.
constexpr int ContagemPlausivel = 2000;
constexpr int MaiorContagem = 20000; // whatever its keys say

class Leitor {
public:
  explicit Leitor(const QString &path) : m_ini(path) {}

  QString Texto(const QString &chave, const QString &padrao) const { return m_ini.Read(Secao, chave, padrao); }
  QString Texto(const char16_t *chave, const char16_t *padrao) const {
    return Texto(QString::fromUtf16(chave), QString::fromUtf16(padrao));
  }
  bool Ligado(const char16_t *chave, const char16_t *padrao) const { return Texto(chave, padrao) == u"1"; }
  template <typename Inteiro> Inteiro Numero(const QString &chave, const char16_t *padrao) const {
    return WholeNumber<Inteiro>(Texto(chave, QString::fromUtf16(padrao)));
  }

private:
  IniSnapshot m_ini;
};

// 3 for "Texto3" and the other keys of a slide; 0 for any other key.
int NumeroDeSlide(QStringView chave) {
  static const QString nomes[] = {QStringLiteral("Imagem"),      QStringLiteral("Titulo"),
                                  QStringLiteral("Texto"),       QStringLiteral("Alinhamento"),
                                  QStringLiteral("Espacamento"), QStringLiteral("FontSize"),
                                  QStringLiteral("incluirTexto")};
  for (const QString &nome : nomes)
    if (chave.startsWith(nome, Qt::CaseInsensitive))
      if (const int numero = chave.mid(nome.size()).toInt(); numero > 0)
        return numero;
  return 0;
}

void ParaCadaChave(const QString &path, const std::function<void(const QString &chave, const QString &valor)> &visita) {
  ForEachIniValue(ReadWholeFile(path), [&](QStringView secao, QStringView chave, const QString &valor) {
    if (secao.compare(Secao, Qt::CaseInsensitive) == 0)
      visita(chave.toString(), valor);
  });
}

int MaiorNumeroDeSlide(const QString &path) {
  int maior = 0;
  ParaCadaChave(path, [&](const QString &chave, const QString &) { maior = std::max(maior, NumeroDeSlide(chave)); });
  return maior;
}

int LeContagem(const Leitor &ini, const QString &path) {
  const int count = std::clamp(ini.Numero<int>(QStringLiteral("Count"), u"0"), 0, MaiorContagem);
  return count <= ContagemPlausivel ? count : std::min(count, std::max(ContagemPlausivel, MaiorNumeroDeSlide(path)));
}

void LeSlides(const Leitor &ini, const QString &path, const char16_t *espacamento, const char16_t *fontSize,
              SlideDocument &documento) {
  const int count = LeContagem(ini, path);
  documento.slides.reserve(count);
  for (int i = 1; i <= count; ++i) {
    const QString n = QString::number(i);
    Slide slide;
    slide.Imagem = ini.Texto(u"Imagem" + n, QString());
    slide.Titulo = ini.Texto(u"Titulo" + n, QString());
    slide.Texto = ini.Texto(u"Texto" + n, QString()).replace(QuebraGuardada, QuebraDeLinha);
    slide.Alinhamento = ini.Numero<qint16>(u"Alinhamento" + n, u"0");
    slide.Espacamento = ini.Numero<qint16>(u"Espacamento" + n, espacamento);
    slide.FontSize = ini.Numero<qint16>(u"FontSize" + n, fontSize);
    slide.incluirTexto = ini.Numero<qint16>(u"incluirTexto" + n, u"1");
    documento.slides.append(slide);
  }
}

// What both readers know by the same keys and with the same defaults.
void LeComum(const Leitor &ini, SlideDocument &documento) {
  TemaRecord &visual = documento.visual;
  documento.Intervalo = ini.Numero<int>(QStringLiteral("Intervalo"), u"0");
  visual.Font_Name = ini.Texto(u"Font_Name", u"Myriad Pro");
  visual.MoveImagens = ini.Ligado(u"MoveImagens", u"0");
  visual.Efeito_Texto_Fx = ini.Texto(u"Efeito_Texto-Fx", u"Fade");
  visual.Efeito_Texto_FxExtra = ini.Texto(u"Efeito_Texto-FxExtra", u"Random");
  visual.Efeito_Texto_FxOut = ini.Texto(u"Efeito_Texto-FxOut", u"None");
  visual.Efeito_Imagem_delay = ini.Texto(u"Efeito_Imagem_delay", u"0");
  visual.Efeito_Imagem_easing = ini.Texto(u"Efeito_Imagem_easing", u"");
  visual.Efeito_Imagem_Fx = ini.Texto(u"Efeito_Imagem-Fx", u"Fade");
  visual.Efeito_Imagem_FxExtra = ini.Texto(u"Efeito_Imagem-FxExtra", u"Random");
  visual.Efeito_Imagem_speed = ini.Texto(u"Efeito_Imagem_speed", u"1000");
  visual.Efeito_Imagem_sync = ini.Texto(u"Efeito_Imagem_sync", u"1");
  visual.FontSombra_Enabled = ini.Ligado(u"FontSombra", u"1");
  visual.FontSombra_Right = ini.Texto(u"FontSombra_Right", u"4");
  visual.FontSombra_Down = ini.Texto(u"FontSombra_Down", u"4");
  visual.CordeFundo = ini.Numero<qint32>(QStringLiteral("CordeFundo"), u"0");
}

QString Bit(bool ligado) {
  return ligado ? QStringLiteral("1") : QStringLiteral("0");
}

// The keys of the look in their order. The interval is told twice, as it is kept and as its place in the list of
// intervals; in a file the second only takes the place of the first.
QList<std::pair<QString, QString>> ChavesDoVisual(const SlideDocument &documento) {
  const TemaRecord &visual = documento.visual;
  return {
      {QStringLiteral("Intervalo"), QString::number(documento.Intervalo)},
      {QStringLiteral("Font_Name"), visual.Font_Name},
      {QStringLiteral("Maiusculas"), Bit(visual.Maiusculas)},
      {QStringLiteral("MoveImagens"), Bit(visual.MoveImagens)},
      {QStringLiteral("Efeito_Texto-Fx"), visual.Efeito_Texto_Fx},
      {QStringLiteral("Efeito_Texto-FxExtra"), visual.Efeito_Texto_FxExtra},
      {QStringLiteral("Efeito_Texto-FxOut"), visual.Efeito_Texto_FxOut},
      {QStringLiteral("Efeito_Imagem_delay"), visual.Efeito_Imagem_delay},
      {QStringLiteral("Efeito_Imagem_easing"), visual.Efeito_Imagem_easing},
      {QStringLiteral("Efeito_Imagem-Fx"), visual.Efeito_Imagem_Fx},
      {QStringLiteral("Efeito_Imagem-FxExtra"), visual.Efeito_Imagem_FxExtra},
      {QStringLiteral("Efeito_Imagem_speed"), visual.Efeito_Imagem_speed},
      {QStringLiteral("Efeito_Imagem_sync"), visual.Efeito_Imagem_sync},
      {QStringLiteral("FontSombra"), Bit(visual.FontSombra_Enabled)},
      {QStringLiteral("FontBorda"), Bit(visual.FontBorda_Enabled)},
      {QStringLiteral("FontCorSombra"), visual.FontSombra_Cor},
      {QStringLiteral("FontEspalhamentoSombra"), visual.FontSombra_Blur},
      {QStringLiteral("FontForçaSombra"), visual.FontSombra_Opacity},
      {QStringLiteral("FontSombra_Right"), visual.FontSombra_Right},
      {QStringLiteral("FontSombra_Down"), visual.FontSombra_Down},
      // Whether there is an outline, although its reader takes it for a colour.
      {QStringLiteral("FontCorBorda"), visual.FontBorda_Enabled ? QStringLiteral("True") : QStringLiteral("False")},
      {QStringLiteral("FontGrossuraBorda"), visual.FontBorda_Espessura},
      {QStringLiteral("FontCor"), visual.Font_Cor},
      {QStringLiteral("CordeFundo"), QString::number(visual.CordeFundo)},
  };
}

} // namespace

SlideDocument::SlideDocument() {
  visual.Font_Name = QStringLiteral("Myriad Pro");
  visual.Maiusculas = false;
  visual.FontSombra_Blur = QStringLiteral("6");
  visual.FontSombra_Opacity = QStringLiteral("10");
  visual.FontBorda_Espessura = QStringLiteral("3");
}

SlideDocument LoadSlideNew(const QString &path) {
  const Leitor ini(path);
  SlideDocument documento;
  LeSlides(ini, path, u"12", u"4", documento);
  LeComum(ini, documento);
  if (documento.Intervalo < SlideManual || documento.Intervalo > SlideUmMinuto)
    documento.Intervalo = SlideManual; // the editor's list has no such place
  TemaRecord &visual = documento.visual;
  visual.Maiusculas = ini.Ligado(u"Maiusculas", u"0");
  visual.FontBorda_Enabled = ini.Ligado(u"FontBorda", u"1");
  visual.FontSombra_Cor = ini.Texto(u"FontCorSombra", u"0");
  visual.FontSombra_Blur = ini.Texto(u"FontEspalhamentoSombra", u"6");
  visual.FontSombra_Opacity = ini.Texto(u"FontForçaSombra", u"10");
  visual.FontBorda_Cor = QString::number(ini.Numero<qint32>(QStringLiteral("FontCorBorda"), u"1513494"));
  visual.FontBorda_Espessura = ini.Texto(u"FontGrossuraBorda", u"");
  visual.Font_Cor = ini.Texto(u"FontCor", u"16777215");

  QSet<QString> escritas{QStringLiteral("count")};
  for (const auto &[chave, valor] : ChavesDoVisual(documento))
    escritas.insert(chave.toCaseFolded());
  ParaCadaChave(path, [&](const QString &chave, const QString &valor) {
    if (NumeroDeSlide(chave) == 0 && !escritas.contains(chave.toCaseFolded()))
      documento.outrasChaves.append({chave, valor});
  });
  return documento;
}

SlideDocument LeSlidesParaExibir(const QString &path) {
  const Leitor ini(path);
  SlideDocument documento;
  LeSlides(ini, path, u"0", u"16", documento);
  LeComum(ini, documento);
  TemaRecord &visual = documento.visual;
  visual.Maiusculas = ini.Ligado(u"Maiusculas", u"1");
  visual.FontBorda_Enabled = ini.Ligado(u"FontBorda_Enabled", u"1");
  visual.FontSombra_Cor = ini.Texto(u"FontSombra_Cor", u"0");
  visual.FontSombra_Blur = ini.Texto(u"FontSombra_Blur", u"6");
  visual.FontSombra_Opacity = ini.Texto(u"FontSombra_Opacity", u"1");
  visual.FontBorda_Cor = ini.Texto(u"FontBorda_Cor", u"1513494");
  visual.FontBorda_Espessura = ini.Texto(u"FontBorda_Espessura", u"2");
  visual.Font_Cor = ini.Texto(u"Font_Cor", u"16777215");
  return documento;
}

bool GravaSlide(const QString &path, SlideDocument &documento) {
  if (documento.slides.isEmpty())
    documento = SlideDocument();
  QString texto = u'[' + Secao + u']' + CRLF;
  const auto grava = [&texto](const QString &chave, const QString &valor) { texto += chave + u'=' + valor + CRLF; };
  grava(QStringLiteral("Count"), QString::number(documento.Count()));
  for (int i = 1; i <= documento.Count(); ++i) {
    const Slide &slide = documento.Em(i);
    const QString n = QString::number(i);
    grava(u"Imagem" + n, QuotedIniValue(slide.Imagem));
    grava(u"Titulo" + n, QuotedIniValue(slide.Titulo));
    grava(u"Texto" + n, QuotedIniValue(QString(slide.Texto).replace(QuebraDeLinha, QuebraGuardada)));
    grava(u"Alinhamento" + n, QString::number(slide.Alinhamento));
    grava(u"Espacamento" + n, QString::number(slide.Espacamento));
    grava(u"FontSize" + n, QString::number(slide.FontSize));
    grava(u"incluirTexto" + n, QString::number(slide.incluirTexto));
  }
  for (const auto &[chave, valor] : ChavesDoVisual(documento) + documento.outrasChaves)
    grava(chave, QuotedIniValue(valor));
  return WriteFileAtomically(path, EncodeText(texto));
}

} // namespace tolmira
