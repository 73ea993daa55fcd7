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

PlacaDoTelao EscolheTela(const MonitorSource &monitores) {
  const std::vector<clsMonitor> todos = monitores.Monitors();
  const quintptr console = monitores.ConsoleMonitor();
  for (const clsMonitor &monitor : todos)
    if (monitor.Handle != console)
      return {monitor.Rect(), true};

  QRect tela(0, 0, 1280, 720);
  for (const clsMonitor &monitor : todos)
    if (monitor.Handle == console)
      tela = monitor.Rect();
  const QSize metade = tela.size() / 2;
  return {QRect(tela.left() + tela.width() / 2 - metade.width() / 2,
                tela.top() + tela.height() / 2 - metade.height() / 2, metade.width(), metade.height()),
          false};
}

PlacaDoTelao PosicionarFrmQuendar(const MonitorSource &monitores, UserPrompt &prompt) {
  if (monitores.Monitors().size() <= 1)
    prompt.Message(MessageKind::Critical, QStringLiteral("Tolmira"),
                   QStringLiteral("The second monitor or projector is not activated, or the screen is set to "
                                  "'Duplicate' when it should be 'Extended.'\n\n"
                                  "Before clicking 'OK,' press the 'Windows+P' keys, and in the screen that appears, "
                                  "click on 'Extend.'"));
  return EscolheTela(monitores);
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
