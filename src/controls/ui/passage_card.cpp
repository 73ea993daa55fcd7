#include "controls/ui/passage_card.h"

#include <QPainter>

#include "controls/ui/palette.h"
#include "controls/ui/text_strip.h"

namespace tolmira {

namespace {

constexpr int TextPx = 26;      // of a verse that has room
constexpr int LargeTextPx = 36;
constexpr int LeastTextPx = 11; // a text longer still is cut at the frame
constexpr int Padding = 20;
constexpr int MarkWidth = 4;

constexpr int Wrapped = Qt::TextWordWrap | Qt::AlignVCenter;

} // namespace

PassageCard::PassageCard(QWidget *parent) : QWidget(parent) { setFocusPolicy(Qt::NoFocus); }

void PassageCard::SetContent(const Content &content) {
  if (content == m_content)
    return;
  m_content = content;
  update();
}

void PassageCard::SetFrame(const QRectF &frame) {
  if (frame == m_frame)
    return;
  m_frame = frame;
  update();
}

QFont PassageCard::TextFont(const QSizeF &room) const {
  QFont font = this->font();
  int px = m_content.large ? LargeTextPx : TextPx;
  for (; px > LeastTextPx; --px) {
    font.setPixelSize(px);
    const QRectF needed = QFontMetricsF(font).boundingRect(QRectF(0, 0, room.width(), 1e6), Qt::TextWordWrap, m_content.text);
    if (needed.height() <= room.height() && needed.width() <= room.width())
      break;
  }
  font.setPixelSize(px);
  return font;
}

void PassageCard::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  TextStrip::PaintFrame(painter, m_frame);
  const QRectF inner = m_frame.adjusted(Padding, Padding / 2.0, -Padding, -Padding / 2.0);
  painter.setClipRect(m_frame);

  if (m_content.mark.isValid()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_content.mark);
    painter.drawRoundedRect(QRectF(m_frame.left() + Padding / 2.0 - MarkWidth / 2.0, inner.top(), MarkWidth,
                                   inner.height()),
                            MarkWidth / 2.0, MarkWidth / 2.0);
  }

  QFont title = font();
  title.setBold(true);
  painter.setFont(title);
  const double titleHeight = QFontMetricsF(title).lineSpacing() + medidas::Step;
  const QRectF titleRect(inner.left(), inner.top(), inner.width(), titleHeight);
  painter.setPen(QColor(cores::Text));
  QRectF drawn;
  painter.drawText(titleRect, Qt::AlignLeft | Qt::AlignVCenter, m_content.reference, &drawn);
  painter.setFont(font());
  painter.setPen(QColor(cores::Quiet));
  painter.drawText(titleRect.adjusted(drawn.width() + medidas::Gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   m_content.version);

  const QRectF room = inner.adjusted(0, titleHeight + medidas::Step, 0, 0);
  const QFont textFont = TextFont(room.size());
  painter.setFont(textFont);
  painter.setPen(QColor(cores::Text));
  painter.drawText(room, Wrapped | static_cast<int>(m_content.alignment), m_content.text);

  painter.setClipping(false);
  painter.setFont(font());
  painter.setPen(QColor(cores::Quiet));
  const QRectF below(m_frame.left(), m_frame.bottom() + medidas::Gap, m_frame.width(), height() - m_frame.bottom());
  painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop, m_content.tip);
}

} // namespace tolmira
