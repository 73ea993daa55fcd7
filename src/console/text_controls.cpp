#include "console/text_controls.h"

#include "console/bible_loader.h"
#include "console/page_zoom.h"
#include "console/song_loader.h"
#include "display/text_style.h"
#include "foundation/text_fields.h"

#include <algorithm>

namespace tolmira {

namespace {

const QString Config = QStringLiteral("Config");
constexpr int PrimeiroAnimado = 7;  // style of songs
constexpr int PrimeiroComFaixa = 2; // style of songs whose band is an element of its own
constexpr int EstiloQueAlinha = 1;  // the only style of songs that follows Alinhamento
constexpr int AjusteNeutro = 15;    // the value of sliderFontSizeAjust that leaves the fitted size as it is

} // namespace

TextControls::TextControls(ConsoleContext &console, SongLoader &loader, BibleLoader &leitura)
    : m_console(console), m_loader(loader), m_leitura(leitura) {}

bool TextControls::LouvorNaTela() const {
  return m_console.estado.EhLetra() && m_console.faixa.Label1Visible;
}

void TextControls::Grava(const QString &key, const QString &value) {
  m_console.store.WriteConfig(Config, key, value);
}

void TextControls::SliderExLouvor(int value) {
  AjustesTexto &ajustes = m_console.ajustes;
  value = std::clamp(value, 0, UltimoEstilo);
  const int old = ajustes.EstiloLouvor;
  if (!Carregado() || value == old)
    return;
  const auto keep = [&] {
    ajustes.EstiloLouvor = value;
    Grava(QStringLiteral("estiloLouvor"), QString::number(value));
  };
  if (old < PrimeiroAnimado && value < PrimeiroAnimado) {
    ApplyZoom(m_console);
    keep();
    if (LouvorNaTela())
      m_loader.ReenviaVerso();
    m_console.Atualiza();
    return;
  }
  keep(); // first: the zoom depends on the style
  RefazLouvor();
}

void TextControls::ComboFontSize(int index) {
  index = std::clamp(index, 0, 2);
  if (!Carregado() || index == m_console.ajustes.FontSizeClass)
    return;
  Grava(QStringLiteral("ComboFontSize"), QString::number(index));
  m_console.ajustes.FontSizeClass = index;
  if (m_console.estado.EhLetra())
    RefazLouvor();
}

// The song on show is fitted and cut anew; the pages are told the size and the verse that is out.
void TextControls::RefazLouvor() {
  ApplyZoom(m_console);
  if (LouvorNaTela() && !m_console.estado.ArquivoAtual.isEmpty()) {
    m_loader.RecarregaMusica(true);
    if (m_console.view)
      m_console.view->FocusStrip();
  }
  m_console.Atualiza();
}

void TextControls::SliderFaixa(int value) {
  value = std::clamp(value, 0, 10);
  if (!Carregado())
    return;
  m_console.ajustes.TransparenciaFaixa = QString::number(value);
  Grava(QStringLiteral("Transparencia_Faixa"), m_console.ajustes.TransparenciaFaixa);
  DefineFaixa(u"rgb(0, 0, 0, ");
  m_console.Atualiza();
}

// One blank less than the slider's own call; both are the same colour.
void TextControls::SliderFaixaUpdate(Alvo alvo) {
  DefineFaixa(u"rgb(0, 0, 0,", alvo);
}

void TextControls::DefineFaixa(QStringView antesDoAlfa, Alvo alvo) {
  const AjustesTexto &ajustes = m_console.ajustes;
  const bool animado = ajustes.EstiloLouvor >= PrimeiroAnimado;
  const QString alfa = AlfaFaixa(ajustes.TransparenciaFaixa);
  m_console.ChamaPaginas(
      QStringLiteral("ChangeCSS"),
      ajustes.EstiloLouvor >= PrimeiroComFaixa ? QStringLiteral("textbackgroundDiv") : QStringLiteral("verso"),
      QStringLiteral("background-color"), antesDoAlfa + (animado ? QStringLiteral("0") : alfa) + u')', alvo);
  if (animado)
    m_console.ScriptNasPaginas(u"ApplyTransparency('" + alfa + u"')", alvo);
}

void TextControls::DefineZoom(int percent) {
  if (Display *display = m_console.telao(); display && display->WV())
    display->WV()->SetZoomFactor(percent * 0.01);
  if (PageObject *pagina = m_console.previa())
    pagina->SetZoomFactor(percent * 0.01);
}

void TextControls::SliderZoom(int percent) {
  percent = std::clamp(percent, MenorZoom, MaiorZoom);
  if (!Carregado())
    return;
  m_console.ajustes.ZoomAjust = percent;
  Grava(QStringLiteral("ZoomAjust"), QString::number(percent));
  if (!m_console.painel.SliderZoomVisible)
    return; // what is on show has a zoom of its own
  m_console.painel.SliderZoom = percent;
  DefineZoom(percent);
  m_console.Atualiza();
}

void TextControls::Image4(int alinhamento) {
  AjustesTexto &ajustes = m_console.ajustes;
  ajustes.Alinhamento = std::clamp(alinhamento, 0, 2);
  m_loader.AlinhaTira();
  if (LouvorNaTela() && ajustes.EstiloLouvor == EstiloQueAlinha)
    m_loader.ReenviaVerso();
  m_console.Atualiza();
}

void TextControls::ImgAlinhamentoVertical() {
  const QString &now = m_console.ajustes.AlinhamentoVertical;
  ApplyVerticalAlign(now == u"center"       ? QStringLiteral("flex-start")
                     : now == u"flex-start" ? QStringLiteral("flex-end")
                                            : QStringLiteral("center"));
}

void TextControls::ApplyVerticalAlign(const QString &value) {
  if (!Carregado() || (value != u"center" && value != u"flex-start" && value != u"flex-end"))
    return;
  PainelConsole &painel = m_console.painel;
  m_console.ajustes.AlinhamentoVertical = value;
  Grava(QStringLiteral("VerticalAlign"), value);
  EnviaAlinhamentoVertical();
  painel.DefineAlinhamentoVertical(value);
  painel.ComboFontSizeVisible = m_console.estado.EhLetra() && value == u"center";
  ApplyZoom(m_console);
  m_loader.RecarregaMusica(true);
  m_leitura.RecarregaVersiculo(true);
  m_console.Atualiza();
}

void TextControls::EnviaAlinhamentoVertical(Alvo alvo) {
  m_console.ScriptNasPaginas(u"SetAttributeByClass('textoContainer','style','justify-content: " +
                                 m_console.ajustes.AlinhamentoVertical + u"')",
                             alvo);
}

void TextControls::ImgBtFontSize(int index) {
  AjustesTexto &ajustes = m_console.ajustes;
  if (!Carregado() || index < 1 || index > 2 || (index == 2 && ajustes.FonteGrande))
    return;
  ajustes.FonteGrande = index == 2;
  if (LouvorNaTela())
    m_loader.RecarregaMusica(true);
  else if (m_console.estado.TipoAtual == u"Bíblia" && m_console.estado.EnviarAoTelao)
    m_console.EnviaTamanhoDaFonte();
  m_console.Atualiza();
}

void TextControls::SliderExBiblia(int value) {
  value = std::clamp(value, 0, UltimoEstiloBiblia);
  if (!Carregado() || value == m_console.ajustes.EstiloBiblia)
    return;
  m_console.ajustes.EstiloBiblia = value;
  Grava(QStringLiteral("estiloBiblia"), QString::number(value));
  m_leitura.RecarregaVersiculo(true);
}

void TextControls::slider2(int value) {
  value = std::clamp(value, 0, 10);
  if (!Carregado() || value == m_console.ajustes.SombraVerso)
    return;
  m_console.ajustes.SombraVerso = value;
  m_leitura.RecarregaVersiculo(true);
}

void TextControls::slider2Solto() {
  Grava(QStringLiteral("SombraVerso"), QString::number(m_console.ajustes.SombraVerso));
}

void TextControls::sliderFontSizeAjust(int value) {
  value = std::clamp(value, 0, MaiorAjusteBiblia);
  if (!Carregado())
    return;
  m_console.ajustes.EscalaBiblia = value - AjusteNeutro + 100;
  Grava(QStringLiteral("FontSizeAjusts"), QString::number(value));
  m_leitura.RecarregaVersiculo(true);
  if (m_console.view)
    m_console.view->FocusStrip(); // where PicCmds, which holds nothing of its own here, would lead the keys
}

int TextControls::ValorDeEscala(double escalaBiblia) {
  return static_cast<int>(escalaBiblia) - 100 + AjusteNeutro;
}

void TextControls::sliderZoomBiblia(int percent) {
  percent = std::clamp(percent, MenorZoom, MaiorZoom);
  if (!Carregado())
    return;
  m_console.ajustes.ZoomAjustBiblia = percent;
  Grava(QStringLiteral("ZoomAjustBiblia"), QString::number(percent));
  if (m_console.estado.TipoAtual != u"Bíblia")
    return;
  m_console.painel.SliderZoom = percent;
  DefineZoom(percent);
  m_leitura.RecarregaVersiculo(true); // a verse that the zoom would push off the screen is set smaller
}

void TextControls::Image5(int alinhamento) {
  m_console.ajustes.AlinhamentoBiblia = std::clamp(alinhamento, 0, 2);
  m_leitura.RecarregaVersiculo(true);
  m_console.Atualiza();
}

void TextControls::PaginaVoltou(Alvo qual) {
  if (!m_console.estado.PaginaDeTexto() && !m_console.estado.PaginaDeSlides())
    return;
  EnviaAlinhamentoVertical(qual);
  if (m_console.estado.EhLetra())
    SliderFaixaUpdate(qual);
}

void LeAjustes(ConsoleContext &console) {
  const auto text = [&](const QString &key, const QString &fallback) {
    return console.store.ReadConfig(Config, key, fallback);
  };
  const auto number = [&](const QString &key, int fallback, int least, int most) {
    const double stored = NumericPrefix(text(key, QString::number(fallback)));
    return static_cast<int>(std::clamp<double>(stored, least, most));
  };
  AjustesTexto &ajustes = console.ajustes;
  ajustes.TransparenciaFaixa = QString::number(number(QStringLiteral("Transparencia_Faixa"), 7, 0, 10));
  ajustes.EscalaBiblia =
      number(QStringLiteral("FontSizeAjusts"), AjusteNeutro, 0, TextControls::MaiorAjusteBiblia) - AjusteNeutro + 100;
  ajustes.ZoomAjust = number(QStringLiteral("ZoomAjust"), 100, TextControls::MenorZoom, TextControls::MaiorZoom);
  ajustes.ZoomAjustBiblia =
      number(QStringLiteral("ZoomAjustBiblia"), 100, TextControls::MenorZoom, TextControls::MaiorZoom);
  ajustes.SombraVerso = number(QStringLiteral("SombraVerso"), 7, 0, 10);
  ajustes.EstiloLouvor = number(QStringLiteral("estiloLouvor"), 4, 0, TextControls::UltimoEstilo);
  ajustes.AlinhamentoVertical = LeAlinhamentoVertical(console.store);
  ajustes.EstiloBiblia = number(QStringLiteral("estiloBiblia"), 1, 0, TextControls::UltimoEstiloBiblia);
  ajustes.FontSizeClass = number(QStringLiteral("ComboFontSize"), 1, 0, 2);
  console.painel.DefineAlinhamentoVertical(ajustes.AlinhamentoVertical);
}

} // namespace tolmira
