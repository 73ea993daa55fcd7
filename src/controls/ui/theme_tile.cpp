#include "controls/ui/theme_tile.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QPainterPath>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

// A small dark plate, so that text reads on any picture.
void PaintPlate(QPainter &painter, const QRectF &rect) {
  QColor plate(cores::Desk);
  plate.setAlpha(205);
  painter.setPen(Qt::NoPen);
  painter.setBrush(plate);
  painter.drawRoundedRect(rect, 4, 4);
}

} // namespace

ThemeTile::ThemeTile(int number, QWidget *parent) : QAbstractButton(parent), m_number(number) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  m_content.colour = QColor(cores::Desk);
}

void ThemeTile::SetContent(const Content &content) {
  m_content = content;
  QString spoken = tr("Theme %1").arg(m_number);
  if (!content.count.isEmpty())
    spoken += QStringLiteral(", ") + content.count;
  if (content.video)
    spoken += QStringLiteral(", ") + tr("video");
  setAccessibleName(spoken);
  update();
}

QSize ThemeTile::sizeHint() const { return {112, 63}; }
QSize ThemeTile::minimumSizeHint() const { return {64, 40}; }

void ThemeTile::contextMenuEvent(QContextMenuEvent *event) {
  emit MenuWanted(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center()));
}

void ThemeTile::enterEvent(QEnterEvent *) { update(); }
void ThemeTile::leaveEvent(QEvent *) { update(); }

void ThemeTile::focusInEvent(QFocusEvent *event) {
  QAbstractButton::focusInEvent(event);
  update();
}

void ThemeTile::focusOutEvent(QFocusEvent *event) {
  QAbstractButton::focusOutEvent(event);
  update();
}

void ThemeTile::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QPainterPath shape;
  shape.addRoundedRect(face, medidas::Corner, medidas::Corner);

  painter.fillPath(shape, m_content.colour);
  if (!m_content.picture.isNull()) {
    // The picture fills the tile; what does not fit is cut off evenly.
    const QSizeF whole = m_content.picture.size();
    QSizeF part = face.size().scaled(whole, Qt::KeepAspectRatio);
    const QRectF source(QPointF((whole.width() - part.width()) / 2, (whole.height() - part.height()) / 2), part);
    painter.setClipPath(shape);
    painter.drawPixmap(face, m_content.picture, source);
    painter.setClipping(false);
  }

  QFont small = font();
  small.setPointSizeF(8);
  small.setBold(true);
  painter.setFont(small);
  const QFontMetricsF metrics(small);
  const auto plate = [&](const QString &text, bool upperLeft) {
    const double w = std::max(metrics.horizontalAdvance(text) + 8, 16.0);
    const double h = 15;
    const QRectF at = upperLeft ? QRectF(face.left() + 3, face.top() + 3, w, h)
                                : QRectF(face.right() - w - 3, face.bottom() - h - 3, w, h);
    PaintPlate(painter, at);
    painter.setPen(QColor(cores::Text));
    painter.drawText(at, Qt::AlignCenter, text);
  };
  plate(QString::number(m_number), true);
  if (!m_content.count.isEmpty())
    plate(m_content.count, false);
  if (m_content.video) {
    const QRectF badge(face.right() - 18 - 3, face.bottom() - 15 - 3, 18, 15);
    PaintPlate(painter, badge);
    QPainterPath play;
    play.moveTo(badge.left() + 6, badge.top() + 4);
    play.lineTo(badge.left() + 13, badge.center().y());
    play.lineTo(badge.left() + 6, badge.bottom() - 4);
    play.closeSubpath();
    painter.fillPath(play, QColor(cores::Text));
  }

  QPen edge(QColor(underMouse() ? cores::Quiet : cores::Line), 1);
  if (hasFocus())
    edge = QPen(QColor(cores::Text), 2);
  painter.setPen(edge);
  painter.setBrush(Qt::NoBrush);
  const double inset = hasFocus() ? 0.5 : 0;
  painter.drawRoundedRect(face.adjusted(inset, inset, -inset, -inset), medidas::Corner, medidas::Corner);
  if (isDown())
    painter.fillPath(shape, QColor(0, 0, 0, 60));
}

} // namespace tolmira
