#include "console/projection_place.h"

namespace tolmira {

namespace {

bool SameMonitor(const clsMonitor &a, const clsMonitor &b) { return a.Edid == b.Edid && a.Conector == b.Conector; }

} // namespace

ProjectionPlace::ProjectionPlace(ConsoleContext &console, const MonitorSource &monitores, Janelas janelas)
    : m_console(console), m_janelas(std::move(janelas)), m_monitores(monitores), m_escolha(console.store) {}

void ProjectionPlace::PosicionarFrmQuendar() {
  m_monitores.Refresh();
  PerguntaPeloProjetor(m_monitores, m_console.prompt);
  Poe(tolmira::EscolheTela(m_monitores, m_escolha));
  m_ajustado = m_janelas.Tamanho();
  if (const clsMonitor *casa = m_monitores.MonitorFromWindow())
    m_casa = *casa;
  ListaTelas();
}

void ProjectionPlace::Reavalia() {
  m_monitores.Refresh();
  if (m_monitores.Monitors.empty())
    return; // between two desktops; the next one is announced
  CuidaDoConsole();
  const PlacaDoTelao placa = tolmira::EscolheTela(m_monitores, m_escolha);
  // A window that stood on a projector never comes over the operator's screen by itself.
  m_console.painel.SemProjetor = !placa.segundoMonitor && m_tinhaProjetor;
  if (m_console.painel.SemProjetor)
    m_janelas.Esconde();
  else
    Poe(placa);
  ListaTelas();
  m_console.Atualiza();
  TamanhoMudou();
}

void ProjectionPlace::Recoloca() {
  if (m_console.painel.SemProjetor)
    m_janelas.Esconde();
  else
    m_janelas.Posiciona(m_placa);
}

void ProjectionPlace::TamanhoMudou() {
  const QSize tamanho = m_janelas.Tamanho();
  if (m_console.painel.SemProjetor || tamanho.isEmpty() || tamanho == m_ajustado)
    return;
  m_ajustado = tamanho;
  m_janelas.TelaMudou();
}

void ProjectionPlace::EscolheTela(int opcao) {
  m_monitores.Refresh();
  ListaTelas();
  if (opcao < 0 || opcao > static_cast<int>(m_monitores.Monitors.size()))
    return;
  const clsMonitor *chosen = opcao == 0 ? nullptr : &m_monitores.Monitors[static_cast<size_t>(opcao) - 1];
  const bool ensaio = chosen && !m_monitores.LivreDoConsole(*chosen);
  m_escolha.Escolhe(chosen, ensaio);
  if (ensaio)
    m_tinhaProjetor = false; // the one way for the window to come over the operator's screen
  Reavalia();
}

void ProjectionPlace::Poe(const PlacaDoTelao &placa) {
  // A rehearsal window stays where the operator dragged it while nothing else about its place has changed, unless the
  // monitor under it has gone.
  const bool mesma = !placa.segundoMonitor && !m_placa.segundoMonitor && placa.tela == m_placa.tela;
  const QPoint meio = mesma ? m_janelas.Retangulo().center() : QPoint();
  const bool ensaio = mesma && m_monitores.GetMonitorFromXYPoint(meio.x(), meio.y());
  m_tinhaProjetor = placa.segundoMonitor;
  m_placa = placa;
  m_console.painel.TelaoEm = placa.nome;
  if (!ensaio)
    m_janelas.Posiciona(placa);
}

const clsMonitor *ProjectionPlace::Presente(const std::optional<clsMonitor> &monitor) const {
  for (const clsMonitor &agora : m_monitores.Monitors)
    if (monitor && SameMonitor(agora, *monitor))
      return &agora;
  return nullptr;
}

// The console goes back to its own monitor when that returns, unless the operator took it elsewhere meanwhile. Where the
// refuge went too, it was the desktop that moved the console.
void ProjectionPlace::CuidaDoConsole() {
  const clsMonitor *agora = m_monitores.MonitorFromWindow();
  if (!agora)
    agora = &m_monitores.Monitors.front();
  const clsMonitor *casa = Presente(m_casa);
  const clsMonitor *refugio = Presente(m_refugio);
  const bool mudouDeLugar = refugio && !SameMonitor(*agora, *refugio);
  if (casa && m_refugio && !mudouDeLugar) {
    m_refugio.reset();
    m_casa = *casa;
    m_janelas.LevaConsole(*m_casa);
  } else if (casa || !m_casa || mudouDeLugar) {
    const bool outraArea = m_casa && SameMonitor(*agora, *m_casa) && agora->WorkArea() != m_casa->WorkArea();
    m_refugio.reset();
    m_casa = *agora;
    if (outraArea)
      m_janelas.LevaConsole(*m_casa);
  } else {
    m_refugio = *agora;
    m_janelas.LevaConsole(*m_refugio);
  }
}

void ProjectionPlace::ListaTelas() {
  std::vector<OpcaoDeTela> telas{{QStringLiteral("Automatic"), m_escolha.Automatica(), true}};
  const clsMonitor *chosen = m_escolha.Encontra(m_monitores);
  for (const clsMonitor &monitor : m_monitores.Monitors)
    telas.push_back({QStringLiteral("%1, %2 × %3 at %4, %5")
                         .arg(monitor.Nome)
                         .arg(monitor.Width)
                         .arg(monitor.Height)
                         .arg(monitor.Left)
                         .arg(monitor.Top),
                     &monitor == chosen, true});
  if (!m_escolha.Automatica() && !chosen)
    telas.push_back({m_escolha.Nome() + u", not connected", true, false});
  m_console.painel.telas = std::move(telas);
}

} // namespace tolmira
