#include "controls/ui/desk_icon.h"

#include <QColor>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

namespace tolmira {

namespace {

class DrawingEngine : public QIconEngine {
public:
  DrawingEngine(QByteArray drawing, QRgb colour) : m_drawing(std::move(drawing)), m_colour(colour) {}

  void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
    const QRgb colour = mode == QIcon::Disabled ? cores::Faint : m_colour;
    QByteArray inked = m_drawing;
    inked.replace("currentColor", QColor(colour).name().toLatin1());
    QSvgRenderer renderer(inked);
    renderer.render(painter, QRectF(rect));
  }

  QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  QIconEngine *clone() const override { return new DrawingEngine(*this); }

private:
  QByteArray m_drawing;
  QRgb m_colour;
};

} // namespace

QIcon DeskIcon(QLatin1String name, QRgb colour) {
  QFile file(QStringLiteral(":/tolmira/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly))
    return {};
  return QIcon(new DrawingEngine(file.readAll(), colour));
}

} // namespace tolmira
