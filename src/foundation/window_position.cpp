#include "foundation/window_position.h"

#include "foundation/text_fields.h"

namespace tolmira {
namespace {

constexpr int TwipsPerPixel = 15;

QString PositionFile(const IniStore &store) {
  return store.App().At(u"\\Data\\FormPositions.dat");
}

int PixelsOfTwips(double twips) {
  return RoundHalfEven(twips / TwipsPerPixel);
}

QPoint Centred(const WindowPlacement &placement) {
  const QRect &screen = placement.screen;
  const QRect &window = placement.window;
  return {placement.fixedLeft != 0 ? placement.fixedLeft : screen.left() + screen.width() / 2 - window.width() / 2,
          placement.fixedTop != 0 ? placement.fixedTop : screen.top() + screen.height() / 2 - window.height() / 2};
}

// The window's far edge has to be inside the span, not on its end. In 64 bits, since the file can hold any number.
bool LiesInSpan(qint64 start, qint64 length, qint64 spanStart, qint64 spanLength) {
  return start >= spanStart && start + length < spanStart + spanLength;
}

} // namespace

void SaveFormPosition(const IniStore &store, const QString &section, const QPoint &topLeft) {
  QString file = PositionFile(store);
  store.WriteConfig(section, QStringLiteral("TOP"), NumberText(double(topLeft.y()) * TwipsPerPixel), file);
  store.WriteConfig(section, QStringLiteral("LEFT"), NumberText(double(topLeft.x()) * TwipsPerPixel), file);
}

QPoint RestoredFormPosition(const IniStore &store, const QString &section, const WindowPlacement &placement) {
  QString file = PositionFile(store);
  const auto stored = [&](const QString &key, const QString &fallback) {
    return ReadNumber(store.ReadConfig(section, key, fallback, file));
  };
  const QString top = QStringLiteral("TOP");
  QPoint corner = Centred(placement);
  if (stored(top, QStringLiteral("-1")) != -1) {
    corner.setY(PixelsOfTwips(stored(top, QStringLiteral("1"))));
    corner.setX(PixelsOfTwips(stored(QStringLiteral("LEFT"), QStringLiteral("1"))));
  }
  const QRect &console = placement.console;
  if (!LiesInSpan(corner.x(), placement.window.width(), console.left(), console.width()))
    corner = Centred(placement);
  if (!LiesInSpan(corner.y(), placement.window.height(), console.top(), console.height()))
    corner = Centred(placement);
  if (!placement.isConsole && !placement.consoleMinimised && corner.y() < console.top())
    corner.setY(console.top());
  return corner;
}

} // namespace tolmira
