#include "controls/ui/state_button.h"

#include <QPainter>

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"

namespace tolmira {

StateButton::StateButton(const QString &caption, QLatin1String drawing, QRgb colour, QWidget *parent)
    : QAbstractButton(parent), m_colour(colour), m_icon(DeskIcon(drawing, cores::Quiet)),
      m_iconChosen(DeskIcon(drawing, colour)) {
  setText(caption);
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setMaximumHeight(46);
  setAccessibleName(caption.trimmed());
}

void StateButton::SetKeyHint(const QString &hint) {
  m_hint = hint;
  updateGeometry();
}

void StateButton::SetCompact(bool compact) {
  m_compact = compact;
  updateGeometry();
  update();
}

QSize StateButton::sizeHint() const {
  if (m_compact)
    return {medidas::Icon + 2 * medidas::Gap, medidas::Icon + fontMetrics().height() + medidas::Gap};
  return {60 + fontMetrics().horizontalAdvance(text()) + fontMetrics().horizontalAdvance(m_hint), medidas::Control};
}

void StateButton::enterEvent(QEnterEvent *) { update(); }
void StateButton::leaveEvent(QEvent *) { update(); }

void StateButton::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QColor fill(underMouse() ? cores::Hover : cores::Raised);
  QColor edge(cores::Line);
  if (isChecked()) {
    fill = m_colour;
    fill.setAlpha(46);
    edge = m_colour;
  }
  if (isDown())
    fill = QColor(cores::Line);
  if (hasFocus())
    edge = QColor(isChecked() ? cores::Text : cores::Accent);
  painter.setPen(QPen(edge, 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(face, medidas::Corner, medidas::Corner);
  if (m_compact) {
    const int used = medidas::Icon + fontMetrics().height();
    const QRect icon((width() - medidas::Icon) / 2, (height() - used) / 2, medidas::Icon, medidas::Icon);
    (isChecked() ? m_iconChosen : m_icon).paint(&painter, icon);
    painter.setPen(QColor(isChecked() ? cores::Text : cores::Quiet));
    painter.drawText(QRect(0, icon.bottom() + 1, width(), fontMetrics().height()), Qt::AlignCenter, m_hint);
    return;
  }
  if (isChecked()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colour);
    painter.drawRoundedRect(QRectF(face.left() + 4, face.top() + 8, 4, face.height() - 16), 2, 2);
  }
  const QRect iconRect(16, (height() - medidas::Icon) / 2, medidas::Icon, medidas::Icon);
  (isChecked() ? m_iconChosen : m_icon).paint(&painter, iconRect);
  QFont caption = font();
  caption.setBold(isChecked());
  painter.setFont(caption);
  painter.setPen(QColor(isEnabled() ? cores::Text : cores::Faint));
  painter.drawText(rect().adjusted(44, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
  painter.setFont(font());
  painter.setPen(QColor(cores::Quiet));
  painter.drawText(rect().adjusted(0, 0, -12, 0), Qt::AlignVCenter | Qt::AlignRight, m_hint);
}

} // namespace tolmira
