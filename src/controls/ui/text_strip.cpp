#include "controls/ui/text_strip.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "controls/ui/palette.h"

namespace tolmira {

namespace {

// Lines are broken at this size, where rounding inside the font engine does not show, and drawn at their own.
constexpr int ReferencePixels = 256;
constexpr size_t MostLayouts = 500; // kept between paints

// Words that are longer than a line break inside.
QStringList BreakLines(const QString &paragraph, const QFont &font, const QFontMetricsF &metrics, double width) {
  if (paragraph.isEmpty() || metrics.horizontalAdvance(paragraph) <= width)
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
  m_layouts.clear();
  if (m_content.fontPx <= 0 || m_content.width <= 0)
    return;
  m_font = QFont(m_content.family);
  m_font.setBold(m_content.bold);
  m_font.setHintingPreference(QFont::PreferNoHinting);
  m_font.setKerning(true);
  // A pixel size would be whole; through points the wanted size comes out to the fraction.
  QFont reference = m_font;
  reference.setPixelSize(ReferencePixels);
  m_font.setPointSizeF(m_content.fontPx * 72.0 / logicalDpiY());

  const QFontMetricsF metrics(reference);
  const double width = m_content.width * ReferencePixels / m_content.fontPx;
  QString text = m_content.text;
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  QHash<QString, QStringList> known; // choruses, and the many blank lines between verses
  for (const QString &paragraph : text.split(u'\n')) {
    auto pieces = known.constFind(paragraph);
    if (pieces == known.constEnd())
      pieces = known.insert(paragraph, BreakLines(paragraph, reference, metrics, width));
    m_lines += *pieces;
  }
}

// A line's layout is made when it is first painted: a song may have more lines than anybody will look at.
const QTextLayout &TextStrip::LayoutOf(int index) {
  std::unique_ptr<QTextLayout> &layout = m_layouts[index];
  if (layout)
    return *layout;
  QTextOption option(m_content.alignment);
  option.setWrapMode(QTextOption::NoWrap);
  layout = std::make_unique<QTextLayout>(m_lines[index], m_font, this);
  layout->setTextOption(option);
  layout->setCacheEnabled(true);
  layout->beginLayout();
  QTextLine line = layout->createLine();
  if (line.isValid()) {
    line.setLineWidth(m_content.width);
    line.setPosition({m_content.left, (m_content.lineHeight - line.height()) / 2});
  }
  layout->endLayout();
  return *layout;
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

void TextStrip::PaintLines(QPainter &painter, const QColor &colour, double from, double to) {
  painter.setPen(colour);
  const double height = m_content.lineHeight;
  const int count = int(m_lines.size());
  const int first = std::clamp(int(std::floor((from - m_top) / height)), 0, count);
  const int last = std::clamp(int(std::ceil((to - m_top) / height)), 0, count);
  for (int i = first; i < last; ++i)
    if (!m_lines[i].isEmpty())
      LayoutOf(i).draw(&painter, {0, m_top + i * height});
}

void TextStrip::paintEvent(QPaintEvent *) {
  if (m_layouts.size() > MostLayouts)
    m_layouts.clear();
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
