#include "controls/ui/frame_mark.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {
constexpr int BlinkMs = 450;
} // namespace

FrameMark::FrameMark(const QColor &colour, QWidget *parent)
    : QWidget(parent), m_colour(colour), m_blink(new QTimer(this)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
  connect(m_blink, &QTimer::timeout, this, [this] {
    m_lit = !m_lit;
    update();
  });
  hide();
}

void FrameMark::Around(QWidget *target, int marginPx) {
  if (target == m_target && marginPx == m_marginPx)
    return;
  if (m_target)
    m_target->removeEventFilter(this);
  m_target = target;
  m_marginPx = marginPx;
  target->installEventFilter(this);
  Fit();
  raise();
}

void FrameMark::Fit() { setGeometry(m_target->geometry().adjusted(-m_marginPx, -m_marginPx, m_marginPx, m_marginPx)); }

bool FrameMark::eventFilter(QObject *watched, QEvent *event) {
  if (watched == m_target && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
    Fit();
  return QWidget::eventFilter(watched, event);
}

void FrameMark::SetBlinking(bool blinking) {
  m_blinking = blinking;
  m_lit = true;
  if (blinking && isVisible())
    m_blink->start(BlinkMs);
  else
    m_blink->stop();
  update();
}

bool FrameMark::IsBlinking() const { return m_blink->isActive(); }

void FrameMark::showEvent(QShowEvent *) { SetBlinking(m_blinking); }
void FrameMark::hideEvent(QHideEvent *) { m_blink->stop(); }

void FrameMark::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor colour = m_colour;
  if (!m_lit)
    colour.setAlphaF(0.25f);
  painter.setPen(QPen(colour, 3));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), medidas::Corner + 2, medidas::Corner + 2);
}

} // namespace tolmira
