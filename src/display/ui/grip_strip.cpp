#include "display/ui/grip_strip.h"

#include <QPainter>

namespace tolmira {

namespace {

const QColor Desk(0x1e, 0x21, 0x28);
const QColor Ink(0xe8, 0xea, 0xf0);
constexpr int SignPx = 24;

// A frame with its upper edge drawn thick: a window.
class ToggleSign : public QWidget {
public:
  using QWidget::QWidget;

protected:
  void paintEvent(QPaintEvent *) override {
    QPainter painter(this);
    painter.setPen(QPen(Ink, 1.5));
    painter.drawRect(QRectF(6, 6, 12, 12));
    painter.fillRect(QRectF(6, 6, 12, 3), Ink);
  }
};

} // namespace

GripStrip::GripStrip(QWidget *parent) : QWidget(parent), m_text(new QLabel(this)), m_toggle(new ToggleSign(this)) {
  setObjectName(QStringLiteral("PicMove"));
  m_text->setObjectName(QStringLiteral("Label7"));
  m_toggle->setObjectName(QStringLiteral("Image4"));
  m_toggle->setCursor(Qt::PointingHandCursor);
  m_text->setText(tr("Projection - drag to move, click for the whole screen"));
  m_text->setAlignment(Qt::AlignCenter);
  QPalette colours = m_text->palette();
  colours.setColor(QPalette::WindowText, Ink);
  m_text->setPalette(colours);
  setCursor(Qt::SizeAllCursor);
  setMouseTracking(true);
}

void GripStrip::resizeEvent(QResizeEvent *) {
  // One and a half of its own height above the lower edge of the strip.
  const int textHeight = m_text->sizeHint().height();
  m_text->setGeometry(0, height() - textHeight * 3 / 2, width(), textHeight);
  m_toggle->setGeometry(width() - SignPx - 6, (height() - SignPx) / 2, SignPx, SignPx);
}

void GripStrip::paintEvent(QPaintEvent *) {
  QPainter(this).fillRect(rect(), Desk);
}

} // namespace tolmira
