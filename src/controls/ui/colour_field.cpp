#include "controls/ui/colour_field.h"

#include "controls/ui/palette.h"
#include "controls/ui/spoken_role.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace tolmira {

namespace {

constexpr double Hues = 0.92; // of the width; what is right of it is grey
constexpr double KeyStep = 0.02;
constexpr int MarkRadius = 5;

QColor ColourAt(const QPointF &place) {
  const auto darkness = static_cast<float>(place.y());
  if (place.x() >= Hues)
    return QColor::fromHslF(0, 0, 1 - darkness);
  return QColor::fromHslF(static_cast<float>(place.x() / Hues), 1, 1 - darkness);
}

QPointF PlaceOf(const QColor &colour) {
  const double darkness = 1 - static_cast<double>(colour.lightnessF());
  if (colour.hslSaturationF() < 0.05F)
    return {1, darkness};
  return {static_cast<double>(colour.hslHueF()) * Hues, darkness};
}

QColor FromStore(qint32 colour) {
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

} // namespace

ColourField::ColourField(const char *name, const QString &spoken, QWidget *parent) : QWidget(parent), m_spoken(spoken) {
  SetSpokenRole(this, QAccessible::ColorChooser);
  setObjectName(QLatin1String(name));
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::CrossCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  TellColour();
}

QSize ColourField::sizeHint() const {
  return {260, 96};
}
QSize ColourField::minimumSizeHint() const {
  return {160, 72};
}

QRect ColourField::Swatch() const {
  return {2, 2, 2 * medidas::Control - 4, height() - 4};
}

QRect ColourField::Field() const {
  const int left = 2 * medidas::Control + medidas::Gap;
  return {left, 2, width() - left - 2, height() - 4};
}

void ColourField::SetColour(qint32 colour) {
  m_colour = colour;
  m_place = PlaceOf(FromStore(colour));
  TellColour();
  update();
}

void ColourField::TellColour() {
  setAccessibleName(m_spoken + u", " + FromStore(m_colour).name().toUpper());
}

void ColourField::Take(const QPointF &place) {
  m_place = {std::clamp(place.x(), 0.0, 1.0), std::clamp(place.y(), 0.0, 1.0)};
  const QColor colour = ColourAt(m_place);
  m_colour = colour.red() | colour.green() << 8 | colour.blue() << 16;
  TellColour();
  update();
  emit Changed(m_colour);
}

void ColourField::mousePressEvent(QMouseEvent *event) {
  if (event->button() == Qt::LeftButton && Field().contains(event->position().toPoint()))
    mouseMoveEvent(event);
}

void ColourField::mouseMoveEvent(QMouseEvent *event) {
  if (!event->buttons().testFlag(Qt::LeftButton))
    return;
  const QRectF field = Field();
  Take(
      {(event->position().x() - field.left()) / field.width(), (event->position().y() - field.top()) / field.height()});
}

void ColourField::keyPressEvent(QKeyEvent *event) {
  switch (event->key()) {
  case Qt::Key_Left:
    return Take(m_place - QPointF(KeyStep, 0));
  case Qt::Key_Right:
    return Take(m_place + QPointF(KeyStep, 0));
  case Qt::Key_Up:
    return Take(m_place - QPointF(0, KeyStep));
  case Qt::Key_Down:
    return Take(m_place + QPointF(0, KeyStep));
  default:
    QWidget::keyPressEvent(event);
  }
}

void ColourField::focusInEvent(QFocusEvent *) {
  update();
}
void ColourField::focusOutEvent(QFocusEvent *) {
  update();
}

void ColourField::paintEvent(QPaintEvent *) {
  const QRect field = Field();
  if (m_drawn.size() != field.size()) {
    m_drawn = QImage(field.size(), QImage::Format_RGB32);
    for (int y = 0; y < field.height(); ++y)
      for (int x = 0; x < field.width(); ++x)
        m_drawn.setPixelColor(x, y, ColourAt({(x + 0.5) / field.width(), (y + 0.5) / field.height()}));
  }
  QPainter painter(this);
  painter.fillRect(Swatch(), FromStore(m_colour));
  painter.drawImage(field.topLeft(), m_drawn);
  painter.setPen(QColor(cores::Line));
  painter.drawRect(Swatch());
  painter.setPen(QColor(hasFocus() ? cores::Accent : cores::Line));
  painter.drawRect(field.adjusted(-1, -1, 0, 0));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(m_place.y() < 0.5 ? Qt::black : Qt::white), 2));
  const QPointF mark(field.left() + m_place.x() * (field.width() - 1),
                     field.top() + m_place.y() * (field.height() - 1));
  painter.setClipRect(field);
  painter.drawEllipse(mark, MarkRadius, MarkRadius);
}

} // namespace tolmira
