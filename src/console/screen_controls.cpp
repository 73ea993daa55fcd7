#include "console/screen_controls.h"

#include <algorithm>

#include "console/page_zoom.h"
#include "console/song_loader.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"

namespace tolmira {

namespace {

const QString Config = QStringLiteral("Config");
constexpr int PrimeiroAnimado = 7; // style of songs

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

ScreenControls::ScreenControls(ConsoleContext &console, SongLoader &loader) : m_console(console), m_loader(loader) {}

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
  ajustes.EscalaBiblia = number(QStringLiteral("FontSizeAjusts"), 15, 0, 100) - 15 + 100;
  ajustes.SombraVerso = number(QStringLiteral("SombraVerso"), 7, 0, 100);
  ajustes.EstiloLouvor = number(QStringLiteral("estiloLouvor"), 4, 0, UltimoEstilo);
  ajustes.AlinhamentoVertical = text(QStringLiteral("VerticalAlign"), QStringLiteral("center"));
  ajustes.EstiloBiblia = number(QStringLiteral("estiloBiblia"), 1, 0, 100);
  ajustes.FontSizeClass = number(QStringLiteral("ComboFontSize"), 1, 0, 2);
}

} // namespace tolmira
