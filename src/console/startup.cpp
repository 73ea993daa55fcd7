#include "console/startup.h"

#include "captions/caption_settings.h"
#include "console/text_controls.h"
#include "display/effects.h"
#include "foundation/text_fields.h"

namespace tolmira {

namespace {

constexpr int EsperaDoFimDoLoad = 1; // ms: as soon as the loop turns

// A value outside `least` to `most` is not believed.
int ReadNumber(const Registro &registro, const QString &name, int fallback, int least, int most) {
  const double stored = NumericPrefix(registro.ReadValue(name, QString::number(fallback)));
  return stored >= least && stored <= most ? static_cast<int>(stored) : fallback;
}

} // namespace

ConsoleStartup::ConsoleStartup(ConsoleContext &console, AgendaDesk &agenda, ThemeControl &temas, ThemeStore &loja,
                               ScreenControls &controles, SongLoader &loader, BibleLoader &leitura,
                               ProjectionPlace &lugar, Janelas janelas)
    : m_console(console), m_agenda(agenda), m_temas(temas), m_loja(loja), m_controles(controles), m_loader(loader),
      m_leitura(leitura), m_lugar(lugar), m_janelas(std::move(janelas)) {
  m_timerTerminaLoad = console.clock.NewTimer([this] { TimerTerminaLoad(); });
}

void ConsoleStartup::Load() {
  EstadoConsole &estado = m_console.estado;
  m_leitura.CarregaVersoes();
  CarregaLegendas(m_console.store, m_console.legenda);
  m_janelas.CarregaFontes();
  LeAjustes(m_console);
  m_lugar.PosicionarFrmQuendar();
  if (m_descarregado)
    return; // closed from outside while the message stood
  m_janelas.AjustaPreview();
  estado.ConsoleCarregado = true;
  carregaInicio();
  m_console.yielder.Yield(4);
  if (m_descarregado)
    return; // and so after each turn of the loop
  m_janelas.positionInicial();
  initApp();
  m_console.yielder.Yield(2);
  if (m_descarregado)
    return;
  ApplyZoom(m_console);
  m_timerTerminaLoad->Start(EsperaDoFimDoLoad);
}

void ConsoleStartup::carregaInicio() {
  const Registro registro(m_console.store);
  m_agenda.SelectTab(ReadNumber(registro, QStringLiteral("LastIndexListMusicas"), 1, 1, NumeroDeAgendas));
  m_console.store.WriteConfig(QStringLiteral("Config"), QStringLiteral("JImpConfig"), QStringLiteral("1"));
  m_loja.LoadTemas(0);
  m_janelas.CarregaTiles();
  m_loader.AjustaQuadro();
  m_leitura.MostraVersao();
  m_temas.CarregaEscolhas(registro);
  AjustesTexto &ajustes = m_console.ajustes;
  ajustes.Alinhamento = ReadNumber(registro, QStringLiteral("Alinhamento"), 2, 0, 2);
  ajustes.AlinhamentoBiblia = ReadNumber(registro, QStringLiteral("AlinhamentoBiblia"), 0, 0, 2);
  ajustes.FonteGrande = ReadNumber(registro, QStringLiteral("FonteGrande"), 1, 1, 2) == 2;
  m_console.faixa.Alinhamento = ajustes.Alinhamento;
  m_console.painel.biblia.Alinhamento = ajustes.AlinhamentoBiblia;
  m_lido = true;
  m_console.Atualiza();
}

void ConsoleStartup::initApp() {
  if (m_initAppRodou)
    return;
  m_initAppRodou = true;
  const Registro registro(m_console.store);
  const QString secao = QStringLiteral("Config");
  const QString marca = QStringLiteral("WV2_error");
  if (m_janelas.CriaPrevia()) {
    registro.WriteValue(QStringLiteral("WebView2error"), QStringLiteral("0"));
    m_console.store.WriteConfig(secao, marca, QStringLiteral("0"));
    return;
  }
  registro.WriteValue(QStringLiteral("WebView2error"), QStringLiteral("1"));
  m_console.store.WriteConfig(secao, marca, QStringLiteral("1"));
  m_console.prompt.Message(MessageKind::Critical, QStringLiteral("Tolmira"),
                           QStringLiteral("Unable to initialize coreWebView2."));
}

void ConsoleStartup::TimerTerminaLoad() {
  m_timerTerminaLoad->Stop();
  EstadoConsole &estado = m_console.estado;
  m_console.yielder.Yield(2);
  if (m_descarregado)
    return;
  m_janelas.CriaTelao();
  m_janelas.MostraTelao();
  estado.TelaPronta = true;
  estado.EnviarAoTelao = true;
  estado.ProximoTema = SemTemaNaFila;
  estado.IndiceTema = m_temas.CheckAlteraTemaAleatorio() ? m_temas.SorteiaTema() : 1;
  bool forcar = false;
  m_temas.aplicaTema(estado.IndiceTema, forcar);
  m_controles.SetScreenState(0);
  m_janelas.IniciaFade();
  if (m_janelas.InicioTerminou)
    m_janelas.InicioTerminou();
}

void ConsoleStartup::Unload() {
  if (m_descarregado)
    return;
  m_descarregado = true;
  EstadoConsole &estado = m_console.estado;
  m_timerTerminaLoad->Stop();
  m_temas.StopRotation();
  estado.EnviarAoTelao = false;
  estado.TelaPronta = false;
  if (m_lido)
    Guarda();
  m_janelas.DescarregaJanelas();
}

// Not before it was read: a console that is closed in the middle of its start would write defaults over it.
void ConsoleStartup::Guarda() {
  const EstadoConsole &estado = m_console.estado;
  const Registro registro(m_console.store);
  const AjustesTexto &ajustes = m_console.ajustes;
  registro.WriteValue(QStringLiteral("FonteGrande"),
                      ajustes.FonteGrande ? QStringLiteral("2") : QStringLiteral("1"));
  registro.WriteValue(QStringLiteral("Alinhamento"), QString::number(ajustes.Alinhamento));
  registro.WriteValue(QStringLiteral("AlinhamentoBiblia"), QString::number(ajustes.AlinhamentoBiblia));
  registro.WriteValue(QStringLiteral("LastIndexListMusicas"), QString::number(estado.ActiveAgenda));
  if (estado.ActiveAgenda > 0)
    m_agenda.salvaListTarefas(estado.ActiveAgenda);
  m_temas.SalvaEscolhas(registro);
}

} // namespace tolmira
