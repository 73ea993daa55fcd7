#include "media/ui/position_bar.h"

#include "controls/ui/palette.h"

#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace tolmira {

namespace {

constexpr int Steps = 1000; // of the whole track
constexpr int BarHeight = 16;
constexpr int ShortStep = 5; // seconds
constexpr int LongStep = 30;

} // namespace

PositionBar::PositionBar(QWidget *parent) : QAbstractSlider(parent), m_picS1(new QFrame(this)) {
  setRange(0, Steps);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setCursor(Qt::PointingHandCursor);
  m_picS1->setObjectName(QStringLiteral("PicS1"));
  m_picS1->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette fill = m_picS1->palette();
  fill.setColor(QPalette::Window, QColor::fromRgb(cores::Accent));
  m_picS1->setPalette(fill);
  m_picS1->setAutoFillBackground(true);
  connect(this, &QAbstractSlider::valueChanged, this, [this](int value) {
    if (m_temMidia)
      emit Escolhido(100.0 * value / Steps);
  });
}

QSize PositionBar::sizeHint() const {
  return {240, BarHeight};
}

void PositionBar::AtualizaBarra(double percentual) {
  if (isSliderDown()) // the pointer has it
    return;
  m_percentual = std::clamp(percentual, 0.0, 100.0);
  const QSignalBlocker quiet(this);
  setValue(static_cast<int>(std::lround(m_percentual * Steps / 100)));
  Preenche();
}

void PositionBar::SetTemMidia(bool tem) {
  m_temMidia = tem;
}

void PositionBar::Preenche() {
  const QRect inside = rect().adjusted(1, 1, -1, -1);
  m_picS1->setGeometry(inside.x(), inside.y(), static_cast<int>(inside.width() * m_percentual / 100), inside.height());
}

void PositionBar::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  update();
}

void PositionBar::Aponta(double x) {
  if (!m_temMidia || width() < 1)
    return;
  const double percentual = std::clamp(100 * x / width(), 0.0, 100.0);
  {
    const QSignalBlocker quiet(this);
    setValue(static_cast<int>(std::lround(percentual * Steps / 100)));
  }
  m_percentual = percentual;
  Preenche();
  emit Escolhido(percentual);
}

void PositionBar::mousePressEvent(QMouseEvent *event) {
  if (event->button() != Qt::LeftButton)
    return event->ignore();
  setSliderDown(true);
  Aponta(event->position().x());
}

void PositionBar::mouseMoveEvent(QMouseEvent *event) {
  if (isSliderDown())
    Aponta(event->position().x());
}

void PositionBar::mouseReleaseEvent(QMouseEvent *event) {
  if (event->button() == Qt::LeftButton)
    setSliderDown(false);
}

void PositionBar::keyPressEvent(QKeyEvent *event) {
  switch (event->key()) {
  case Qt::Key_Left:
  case Qt::Key_Down:
    emit Passo(-ShortStep);
    break;
  case Qt::Key_Right:
  case Qt::Key_Up:
    emit Passo(ShortStep);
    break;
  case Qt::Key_PageDown:
    emit Passo(-LongStep);
    break;
  case Qt::Key_PageUp:
    emit Passo(LongStep);
    break;
  case Qt::Key_Home:
    Aponta(0);
    break;
  case Qt::Key_End:
    if (m_temMidia)
      emit AoFim();
    break;
  default:
    event->ignore();
  }
}

// The wheel would tear the video of a whole hall about.
void PositionBar::wheelEvent(QWheelEvent *event) {
  event->ignore();
}

void PositionBar::resizeEvent(QResizeEvent *) {
  Preenche();
}

void PositionBar::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setPen(QColor::fromRgb(hasFocus() ? cores::Accent : cores::Line));
  painter.setBrush(QColor::fromRgb(cores::Desk));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tolmira
