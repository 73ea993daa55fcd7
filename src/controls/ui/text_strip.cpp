#include "controls/ui/text_strip.h"

#include <QFont>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

// Lines are broken at this size, where rounding inside the font engine does not show, and drawn at their own.
constexpr int ReferencePixels = 256;

// Words that are longer than a line break inside.
QStringList BreakLines(const QString &paragraph, const QFont &font, double width) {
  if (paragraph.isEmpty() || QFontMetricsF(font).horizontalAdvance(paragraph) <= width)
    return {paragraph};
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  QTextLayout layout(paragraph, font);
  layout.setTextOption(option);
  QStringList pieces;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    pieces.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
  }
  layout.endLayout();
  return pieces;
}

} // namespace

TextStrip::TextStrip(QWidget *parent) : QWidget(parent) {
  setCursor(Qt::OpenHandCursor);
  setFocusPolicy(Qt::NoFocus);
}

void TextStrip::SetContent(const Content &content) {
  if (content == m_content)
    return;
  m_content = content;
  LayOut();
  update();
}

void TextStrip::SetTop(double top) {
  if (top == m_top)
    return;
  m_top = top;
  update();
}

void TextStrip::SetFrame(const QRectF &frame) {
  if (frame == m_frame)
    return;
  m_frame = frame;
  update();
}

void TextStrip::SetMark(double top, double bottom, const QColor &colour) {
  if (top == m_markTop && bottom == m_markBottom && colour == m_markColour)
    return;
  m_markTop = top;
  m_markBottom = bottom;
  m_markColour = colour;
  update();
}

void TextStrip::SetBright(double top, double bottom) {
  if (top == m_brightTop && bottom == m_brightBottom)
    return;
  m_brightTop = top;
  m_brightBottom = bottom;
  update();
}

void TextStrip::LayOut() {
  m_lines.clear();
  if (m_content.fontPx <= 0 || m_content.width <= 0)
    return;
  QFont font(m_content.family);
  font.setBold(m_content.bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(true);
  // A pixel size would be whole; through points the wanted size comes out to the fraction.
  QFont reference = font;
  reference.setPixelSize(ReferencePixels);
  font.setPointSizeF(m_content.fontPx * 72.0 / logicalDpiY());

  QTextOption option(m_content.alignment);
  option.setWrapMode(QTextOption::NoWrap);
  QString text = m_content.text;
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  const QStringList paragraphs = text.split(u'\n');
  for (const QString &paragraph : paragraphs)
    for (const QString &piece : BreakLines(paragraph, reference, m_content.width * ReferencePixels / m_content.fontPx)) {
      auto layout = std::make_unique<QTextLayout>(piece, font, this);
      layout->setTextOption(option);
      layout->setCacheEnabled(true);
      layout->beginLayout();
      QTextLine line = layout->createLine();
      if (line.isValid()) {
        line.setLineWidth(m_content.width);
        const double spare = (m_content.lineHeight - line.height()) / 2;
        line.setPosition({m_content.left, double(m_lines.size()) * m_content.lineHeight + spare});
      }
      layout->endLayout();
      m_lines.push_back(std::move(layout));
    }
}

void TextStrip::PaintFrame(QPainter &painter, const QRectF &frame) {
  if (frame.isEmpty())
    return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(cores::Raised));
  painter.setPen(QPen(QColor(cores::Accent), 2));
  painter.drawRoundedRect(frame.adjusted(1, 1, -1, -1), medidas::Corner, medidas::Corner);
  painter.restore();
}

void TextStrip::PaintLines(QPainter &painter, const QColor &colour, double from, double to) const {
  painter.setPen(colour);
  const double height = m_content.lineHeight;
  const int count = int(m_lines.size());
  const int first = std::clamp(int(std::floor((from - m_top) / height)), 0, count);
  const int last = std::clamp(int(std::ceil((to - m_top) / height)), 0, count);
  for (int i = first; i < last; ++i)
    m_lines[size_t(i)]->draw(&painter, {0, m_top});
}

void TextStrip::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintFrame(painter, m_frame);

  if (m_markBottom > m_markTop) {
    const double middle = 6;
    const double x = std::max(8.0, m_frame.left() + 10);
    QRectF bar(x, m_top + m_markTop + middle, 4, std::max(4.0, m_markBottom - m_markTop - 2 * middle));
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_markColour);
    painter.drawRoundedRect(bar, 2, 2);
  }

  const QRectF inside = m_frame.adjusted(2, 2, -2, -2);
  if (m_frame.isEmpty()) {
    PaintLines(painter, QColor(cores::Text), 0, height());
    return;
  }
  painter.save();
  painter.setClipRect(QRectF(0, 0, width(), inside.top()));
  PaintLines(painter, QColor(cores::Faint).lighter(125), 0, inside.top());
  painter.setClipRect(QRectF(0, inside.bottom(), width(), height() - inside.bottom()));
  PaintLines(painter, QColor(cores::Faint).lighter(125), inside.bottom(), height());
  painter.restore();
  painter.save();
  const double top = m_top + m_brightTop;
  const double bottom = m_top + m_brightBottom;
  if (m_brightBottom > m_brightTop) {
    painter.setClipRect(inside & QRectF(0, 0, width(), std::max(0.0, top)));
    PaintLines(painter, QColor(cores::Quiet), inside.top(), top);
    painter.setClipRect(inside & QRectF(0, bottom, width(), std::max(0.0, height() - bottom)));
    PaintLines(painter, QColor(cores::Quiet), bottom, inside.bottom());
    painter.setClipRect(inside & QRectF(0, top, width(), bottom - top));
  } else {
    painter.setClipRect(inside);
  }
  PaintLines(painter, QColor(cores::Text), inside.top(), inside.bottom());
  painter.restore();

  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(cores::Accent), 2));
  painter.drawRoundedRect(m_frame.adjusted(1, 1, -1, -1), medidas::Corner, medidas::Corner);

  // The text comes and goes at the panel's edges without a hard cut.
  constexpr int fade = 28;
  QColor panel(cores::Panel);
  QColor clear = panel;
  clear.setAlpha(0);
  QLinearGradient upper(0, 0, 0, fade);
  upper.setColorAt(0, panel);
  upper.setColorAt(1, clear);
  painter.fillRect(QRectF(0, 0, width(), std::min<double>(fade, m_frame.top())), upper);
  QLinearGradient lower(0, height() - fade, 0, height());
  lower.setColorAt(0, clear);
  lower.setColorAt(1, panel);
  const double lowerTop = std::max<double>(height() - fade, m_frame.bottom());
  painter.fillRect(QRectF(0, lowerTop, width(), height() - lowerTop), lower);
}

void TextStrip::mousePressEvent(QMouseEvent *event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  m_dragging = true;
  setCursor(Qt::ClosedHandCursor);
  emit Pressed(event->position().y() - m_top);
}

void TextStrip::mouseMoveEvent(QMouseEvent *event) {
  if (m_dragging)
    emit Dragged(event->position().y() - m_top);
}

void TextStrip::mouseReleaseEvent(QMouseEvent *event) {
  if (event->button() != Qt::LeftButton || !m_dragging)
    return;
  m_dragging = false;
  setCursor(Qt::OpenHandCursor);
  emit Released(event->position().y() - m_top);
}

} // namespace tolmira
