#include "console/screen_controls.h"

#include <algorithm>

#include "console/bible_loader.h"
#include "console/page_zoom.h"
#include "console/song_loader.h"
#include "display/text_style.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QString Config = QStringLiteral("Config");
constexpr int PrimeiroAnimado = 7; // style of songs
constexpr int AjusteNeutro = 15;   // the value of sliderFontSizeAjust that leaves the fitted size as it is

struct EstadoDaTela {
  QString legenda;
  QString dica;
};

const EstadoDaTela &Estado(int index) {
  static const EstadoDaTela estados[] = {
      {QStringLiteral("Normal"), QStringLiteral("Modo padrão de projeção")},
      {QStringLiteral("Text Hidden"), QStringLiteral("Projetar apenas fundo, sem texto")},
      {QStringLiteral("Black Screen"), QStringLiteral("Projetar apenas tela preta")},
      {QStringLiteral("Background "), QString()},
      {QStringLiteral("No Projection"), QStringLiteral("Não projetar")},
  };
  return estados[std::clamp(index, 0, 4)];
}

} // namespace

ScreenControls::ScreenControls(ConsoleContext &console, SongLoader &loader, BibleLoader &leitura)
    : m_console(console), m_loader(loader), m_leitura(leitura) {}

QString ScreenControls::LegendaDoEstado(int index) { return Estado(index).legenda; }
QString ScreenControls::DicaDoEstado(int index) { return Estado(index).dica; }

void ScreenControls::SetScreenState(int index) {
  if (index < 0 || index > 4)
    return;
  EstadoConsole &estado = m_console.estado;
  DisplayChannel &canal = m_console.canal;
  const auto showText = [&](const QString &value) {
    canal.SendToDisplay(QStringLiteral("ChangeCSS|#texto|#display|#") + value);
    CallPageScript(m_console.previa(), QStringLiteral("ChangeCSS"), QStringLiteral("texto"), QStringLiteral("display"),
                   value);
  };

  QString fundo;
  if (index == 3) {
    const QString nome = m_console.store.ReadConfig(Config, QStringLiteral("padraodefundo"), QString());
    fundo = m_console.app.At(u"\\Images\\") + nome;
    if (nome.isEmpty() || !FileExists(fundo)) {
      m_console.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"),
                               QStringLiteral("No default background has been chosen yet."));
      return;
    }
  }

  if (index != 1 && estado.EstadoTela == u"OcultarTexto")
    showText(QStringLiteral("block"));
  m_console.painel.LBTelaMarcado = index;
  m_console.yielder.Yield(1);

  Display *display = m_console.telao();
  if (display && index != 2)
    display->DefineTelaPreta(false);
  if (display && index != 3)
    display->DefineFundoPadrao(QString());

  switch (index) {
  case 0:
    estado.EstadoTela = QStringLiteral("Normal");
    canal.SendToDisplay(QStringLiteral("Normal"));
    break;
  case 1:
    estado.EstadoTela = QStringLiteral("OcultarTexto");
    showText(QStringLiteral("none"));
    canal.SendToDisplay(QStringLiteral("OcultarTexto"));
    break;
  case 2:
    estado.EstadoTela = QStringLiteral("TelaPreta");
    if (display)
      display->DefineTelaPreta(true);
    canal.SendToDisplay(QStringLiteral("TelaPreta|#true"));
    break;
  case 3:
    estado.EstadoTela = QStringLiteral("PadraoDeFundo");
    if (display)
      display->DefineFundoPadrao(fundo);
    canal.SendToDisplay(QStringLiteral("PadraDeFundo|#") + fundo);
    break;
  default:
    estado.EstadoTela = QStringLiteral("Hide");
    canal.SendToDisplay(QStringLiteral("Hide"));
    break;
  }
  m_console.Atualiza();
}

void ScreenControls::SliderExLouvor(int value) {
  EstadoConsole &estado = m_console.estado;
  AjustesTexto &ajustes = m_console.ajustes;
  value = std::clamp(value, 0, UltimoEstilo);
  const int old = ajustes.EstiloLouvor;
  if (value == old)
    return;
  ajustes.EstiloLouvor = value;
  m_console.store.WriteConfig(Config, QStringLiteral("estiloLouvor"), QString::number(value));
  ApplyZoom(m_console);
  const bool songOnShow = estado.EhLetra() && m_console.faixa.Label1Visible;
  if (!songOnShow)
    return;
  if (old < PrimeiroAnimado && value < PrimeiroAnimado) {
    m_console.letras.ExibeVerso(estado.EstrofeAtual, true);
    return;
  }
  if (!estado.ArquivoAtual.isEmpty())
    m_loader.RecarregaMusica(true);
  if (m_console.view)
    m_console.view->FocusStrip();
}

void ScreenControls::SliderExBiblia(int value) {
  value = std::clamp(value, 0, UltimoEstiloBiblia);
  if (value == m_console.ajustes.EstiloBiblia)
    return;
  m_console.ajustes.EstiloBiblia = value;
  m_console.store.WriteConfig(Config, QStringLiteral("estiloBiblia"), QString::number(value));
  m_leitura.RecarregaVersiculo(true);
}

void ScreenControls::slider2(int value) {
  value = std::clamp(value, 0, 10);
  if (value == m_console.ajustes.SombraVerso)
    return;
  m_console.ajustes.SombraVerso = value;
  m_leitura.RecarregaVersiculo(true);
}

void ScreenControls::slider2Solto() {
  m_console.store.WriteConfig(Config, QStringLiteral("SombraVerso"), QString::number(m_console.ajustes.SombraVerso));
}

void ScreenControls::sliderFontSizeAjust(int value) {
  value = std::clamp(value, 0, MaiorAjusteBiblia);
  m_console.ajustes.EscalaBiblia = value - AjusteNeutro + 100;
  m_console.store.WriteConfig(Config, QStringLiteral("FontSizeAjusts"), QString::number(value));
  m_leitura.RecarregaVersiculo(true);
}

int ScreenControls::ValorDeEscala(double escalaBiblia) {
  return static_cast<int>(escalaBiblia) - 100 + AjusteNeutro;
}

void ScreenControls::sliderZoomBiblia(int percent) {
  m_console.store.WriteConfig(Config, QStringLiteral("ZoomAjustBiblia"), QString::number(percent));
  if (m_console.estado.TipoAtual != u"Bíblia")
    return;
  ApplyZoom(m_console);
  m_leitura.RecarregaVersiculo(true); // a verse that the zoom would push off the screen is set smaller
}

void ScreenControls::Image5(int alinhamento) {
  m_console.ajustes.AlinhamentoBiblia = std::clamp(alinhamento, 0, 2);
  m_leitura.RecarregaVersiculo(true);
}

void ScreenControls::LeAjustes() {
  const auto text = [&](const QString &key, const QString &fallback) {
    return m_console.store.ReadConfig(Config, key, fallback);
  };
  const auto number = [&](const QString &key, int fallback, int least, int most) {
    const double stored = NumericPrefix(text(key, QString::number(fallback)));
    return static_cast<int>(std::clamp<double>(stored, least, most));
  };
  AjustesTexto &ajustes = m_console.ajustes;
  ajustes.TransparenciaFaixa = QString::number(number(QStringLiteral("Transparencia_Faixa"), 7, 0, 10));
  ajustes.EscalaBiblia =
      number(QStringLiteral("FontSizeAjusts"), AjusteNeutro, 0, MaiorAjusteBiblia) - AjusteNeutro + 100;
  ajustes.ZoomAjustBiblia = number(QStringLiteral("ZoomAjustBiblia"), 100, 60, 500);
  ajustes.SombraVerso = number(QStringLiteral("SombraVerso"), 7, 0, 10);
  ajustes.EstiloLouvor = number(QStringLiteral("estiloLouvor"), 4, 0, UltimoEstilo);
  ajustes.AlinhamentoVertical = LeAlinhamentoVertical(m_console.store);
  ajustes.EstiloBiblia = number(QStringLiteral("estiloBiblia"), 1, 0, UltimoEstiloBiblia);
  ajustes.FontSizeClass = number(QStringLiteral("ComboFontSize"), 1, 0, 2);
}

} // namespace tolmira
