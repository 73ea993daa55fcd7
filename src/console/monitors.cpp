#include "console/monitors.h"

#include <algorithm>
#include <cmath>

#include "foundation/text_fields.h"

namespace tolmira {

namespace {

const QString Secao = QStringLiteral("Config");
constexpr int Twips = 15;        // to the pixel
constexpr int LimiteDeTwips = 1'000'000; // far beyond any desktop
constexpr int TamanhoMinimo = 101; // twips; a smaller stored rectangle is not believed

// The walk over the desktop, and how much of a window's title has to be seen; pixels.
constexpr int PassoAoLado = 320;
constexpr int PassoAbaixo = 240;
constexpr int AlturaDoTitulo = 24;
constexpr int LarguraParaPegar = 120;

const QString ChaveDoMonitor = QStringLiteral("MonitorDoTelao");
const QString MarcaDeEnsaio = QStringLiteral("ensaio");

const clsMonitor *ByHandle(const std::vector<clsMonitor> &monitores, quintptr handle) {
  for (const clsMonitor &monitor : monitores)
    if (monitor.Handle == handle)
      return &monitor;
  return nullptr;
}

QString Arquivo(const IniStore &store) { return store.App().At(u"\\Data\\FormPositions.dat"); }

void Grava(const IniStore &store, const QString &key, double twips) {
  QString file = Arquivo(store);
  store.WriteConfig(Secao, key, QString::number(std::lround(twips)), file);
}

int Le(const IniStore &store, const QString &key) {
  QString file = Arquivo(store);
  const double stored = NumericPrefix(store.ReadConfig(Secao, key, QStringLiteral("0"), file));
  return static_cast<int>(std::clamp<double>(stored, -LimiteDeTwips, LimiteDeTwips));
}

} // namespace

clsMonitors::clsMonitors(const MonitorSource &fonte) : m_fonte(fonte) { Refresh(); }

// In steps of at most the size of the smallest monitor that counts.
void clsMonitors::Refresh() {
  Monitors.clear();
  m_todos = m_fonte.Monitors();
  QRect mesa;
  for (const clsMonitor &monitor : m_todos)
    mesa |= monitor.Rect();
  for (int y = mesa.top(); y <= mesa.bottom(); y += PassoAbaixo)
    for (int x = mesa.left(); x <= mesa.right(); x += PassoAoLado) {
      const auto met = std::find_if(m_todos.begin(), m_todos.end(),
                                    [&](const clsMonitor &monitor) { return monitor.Rect().contains(x, y); });
      if (met != m_todos.end() && !ByHandle(Monitors, met->Handle))
        Monitors.push_back(*met);
    }
}

// A console on a monitor that lies behind another stands on that one.
const clsMonitor *clsMonitors::MonitorFromWindow() const {
  const quintptr handle = m_fonte.ConsoleMonitor();
  if (const clsMonitor *met = ByHandle(Monitors, handle))
    return met;
  const clsMonitor *hidden = ByHandle(m_todos, handle);
  return hidden ? GetMonitorFromXYPoint(hidden->Left, hidden->Top) : nullptr;
}

const clsMonitor *clsMonitors::GetMonitorFromXYPoint(int x, int y) const {
  for (const clsMonitor &monitor : Monitors)
    if (monitor.Rect().contains(x, y))
      return &monitor;
  return nullptr;
}

bool clsMonitors::LivreDoConsole(const clsMonitor &monitor) const {
  const clsMonitor *console = MonitorFromWindow();
  return !console || (monitor.Handle != console->Handle && !monitor.Rect().intersects(console->Rect()));
}

bool clsMonitors::IsFormOnPrimaryMonitor(const QRect &form) const {
  const clsMonitor *monitor = GetMonitorFromXYPoint(form.center().x(), form.center().y());
  return monitor && monitor->Handle == m_todos.front().Handle;
}

bool clsMonitors::AoAlcance(const QRect &form) const {
  const QRect title(form.topLeft(), QSize(form.width(), std::min(form.height(), AlturaDoTitulo)));
  return std::any_of(Monitors.begin(), Monitors.end(), [&](const clsMonitor &monitor) {
    const QRect seen = title & monitor.WorkArea();
    return seen.height() == title.height() && seen.width() >= std::min(title.width(), LarguraParaPegar);
  });
}

EscolhaDeMonitor::EscolhaDeMonitor(const IniStore &store) : m_store(store) {
  const QString stored = store.ReadConfig(Secao, ChaveDoMonitor, QString());
  m_edid = stored.section(u'|', 0, 0);
  m_conector = stored.section(u'|', 1, 1);
  m_nome = stored.section(u'|', 2, 2);
  m_ensaio = !Automatica() && stored.section(u'|', 3, 3) == MarcaDeEnsaio;
}

void EscolhaDeMonitor::Escolhe(const clsMonitor *monitor, bool ensaio) {
  const auto part = [](QString text) { return text.replace(u'|', u' ').simplified(); };
  m_edid = monitor ? part(monitor->Edid) : QString();
  m_conector = monitor ? part(monitor->Conector) : QString();
  m_nome = monitor ? part(monitor->Nome) : QString();
  m_ensaio = !Automatica() && ensaio;
  QString stored;
  if (!Automatica())
    stored = m_edid + u'|' + m_conector + u'|' + m_nome;
  if (m_ensaio)
    stored += u'|' + MarcaDeEnsaio;
  m_store.WriteConfig(Secao, ChaveDoMonitor, stored);
}

// On another connector it is known by its EDID alone. The console's monitor may be of the same make and tell no serial
// number; it is not taken for a projector that has gone.
const clsMonitor *EscolhaDeMonitor::Encontra(const clsMonitors &monitores) const {
  if (Automatica())
    return nullptr;
  const clsMonitor *found = nullptr;
  for (const clsMonitor &monitor : monitores.Monitors) {
    if (QString(monitor.Edid).replace(u'|', u' ').simplified() != m_edid)
      continue;
    if (monitor.Conector == m_conector)
      return &monitor;
    if (!found && !m_edid.isEmpty() && (m_ensaio || monitores.LivreDoConsole(monitor)))
      found = &monitor;
  }
  return found;
}

PlacaDoTelao EscolheTela(const clsMonitors &monitores, const EscolhaDeMonitor &escolha) {
  const clsMonitor *chosen = escolha.Encontra(monitores);
  if (chosen && monitores.LivreDoConsole(*chosen))
    return {chosen->Rect(), true, true, chosen->Handle, chosen->Nome};
  // The console came onto a monitor that was chosen for the audience: nobody asked for a window above it there.
  if (chosen && !escolha.Ensaio())
    chosen = nullptr;
  if (!chosen)
    for (const clsMonitor &monitor : monitores.Monitors)
      if (monitores.LivreDoConsole(monitor))
        return {monitor.Rect(), true, false, monitor.Handle, monitor.Nome};

  const clsMonitor *own = chosen ? chosen : monitores.MonitorFromWindow();
  if (!own && !monitores.Monitors.empty())
    own = &monitores.Monitors.front();
  const QRect tela = own ? own->Rect() : QRect(0, 0, 1280, 720);
  const QSize metade = tela.size() / 2;
  PlacaDoTelao placa;
  placa.tela = QRect(tela.left() + tela.width() / 2 - metade.width() / 2,
                     tela.top() + tela.height() / 2 - metade.height() / 2, metade.width(), metade.height());
  placa.escolhida = chosen;
  if (own) {
    placa.monitor = own->Handle;
    placa.nome = own->Nome;
  }
  return placa;
}

void PerguntaPeloProjetor(clsMonitors &monitores, UserPrompt &prompt) {
  if (monitores.Monitors.size() > 1)
    return;
  prompt.Message(MessageKind::Critical, QStringLiteral("Tolmira"),
                 QStringLiteral("The second monitor or projector is not activated, or the screen is set to "
                                "'Duplicate' when it should be 'Extended.'\n\n"
                                "Before clicking 'OK,' press the 'Windows+P' keys, and in the screen that appears, "
                                "click on 'Extend.'"));
  monitores.Refresh();
}

QRect RetanguloPadrao(const QRect &tela) {
  const auto part = [](int length, double factor) { return static_cast<int>(std::lround(length * factor)); };
  return {tela.left() + part(tela.width(), 0.1), tela.top() + part(tela.height(), 0.1), part(tela.width(), 0.8),
          part(tela.height(), 0.8)};
}

// From the screen in twips, of which a tenth is finer than a pixel.
void GravaRetanguloPadrao(const IniStore &store, const QRect &tela) {
  const auto twips = [](int pixels) { return static_cast<double>(pixels) * Twips; };
  Grava(store, QStringLiteral("Frm1T"), twips(tela.top()) + twips(tela.height()) * 0.1);
  Grava(store, QStringLiteral("Frm1L"), twips(tela.left()) + twips(tela.width()) * 0.1);
  Grava(store, QStringLiteral("Frm1R"), twips(tela.width()) * 0.8);
  Grava(store, QStringLiteral("Frm1B"), twips(tela.height()) * 0.8);
}

void GravaRetanguloNormal(const IniStore &store, const QRect &pixels) {
  Grava(store, QStringLiteral("Frm1T"), pixels.top() * Twips);
  Grava(store, QStringLiteral("Frm1L"), pixels.left() * Twips);
  Grava(store, QStringLiteral("Frm1R"), pixels.width() * Twips);
  Grava(store, QStringLiteral("Frm1B"), pixels.height() * Twips);
}

QRect LeRetanguloNormal(const IniStore &store, const QRect &tela) {
  const int width = Le(store, QStringLiteral("Frm1R"));
  const int height = Le(store, QStringLiteral("Frm1B"));
  if (width < TamanhoMinimo || height < TamanhoMinimo)
    return RetanguloPadrao(tela);
  return {Le(store, QStringLiteral("Frm1L")) / Twips, Le(store, QStringLiteral("Frm1T")) / Twips, width / Twips,
          height / Twips};
}

QRect AjustaPreview(const QSize &container, const QSize &monitor) {
  if (monitor.isEmpty())
    return {QPoint(0, 0), container};
  int width = container.width() - 2;
  int height = static_cast<int>(static_cast<double>(width) / monitor.width() * monitor.height());
  if (height - 2 > container.height()) {
    height = container.height() - 2;
    width = static_cast<int>(static_cast<double>(height) / monitor.height() * monitor.width());
  }
  return {container.width() / 2 - width / 2, container.height() / 2 - height / 2, width, height};
}

} // namespace tolmira
