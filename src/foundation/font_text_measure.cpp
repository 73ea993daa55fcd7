#include "foundation/real_seams.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QHash>
#include <QTextLayout>
#include <algorithm>

namespace tolmira {
namespace {

// Large enough that rounding inside the font engine does not show, small enough that glyphs stay in its cache.
constexpr int ReferencePixels = 256;
// A song has a hundred lines, so this is many songs; then the lines are forgotten and measured again.
constexpr qsizetype RememberedLines = 4096;

// The font system finds something for every name: the family itself, one of the same measures under another name (that
// is how "Arial" is met), or else the one that it would take for any name. Only the last is a missing family.
bool IsMissing(const QString &family) {
  if (family.isEmpty())
    return true;
  if (QFontDatabase::hasFamily(family))
    return false;
  const QString anyName = QFontInfo(QFont(QStringLiteral("tolmira has no such family"))).family();
  return QFontInfo(QFont(family)).family() == anyName;
}

QFont ReferenceFont(const QString &family, bool bold) {
  QFont font(IsMissing(family) ? QStringLiteral("Arial") : family);
  font.setPixelSize(ReferencePixels);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(true);
  return font;
}

struct Face {
  // What was found out about a line: its width, and its count of lines at the wrap width asked for last.
  struct Line {
    double width = 0;
    double wrapWidth = 0;
    int wrappedLines = 1;
  };

  explicit Face(const QFont &reference) : font(reference), metrics(reference) {}

  Line &Remembered(const QString &text) {
    if (const auto known = lines.find(text); known != lines.end())
      return *known;
    if (lines.size() >= RememberedLines)
      lines.clear();
    return *lines.insert(text, Line{.width = metrics.horizontalAdvance(text)});
  }

  double LineWidth(const QString &text) { return Remembered(text).width; }

  int WrappedLines(const QString &text, double width) {
    Line &line = Remembered(text);
    if (line.width <= width)
      return 1;
    if (line.wrapWidth != width) {
      line.wrappedLines = LayOut(text, width);
      line.wrapWidth = width;
    }
    return line.wrappedLines;
  }

  // Words that are longer than a line break inside.
  int LayOut(const QString &text, double width) const {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    int count = 0;
    layout.beginLayout();
    for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
      part.setLineWidth(width);
      ++count;
    }
    layout.endLayout();
    return std::max(count, 1);
  }

  QFont font;
  QFontMetricsF metrics;
  QHash<QString, Line> lines;
};

double Scale(const FontSpec &font) {
  return std::max(font.sizePt, 0.0) * 96 / 72 / ReferencePixels;
}

QStringList LinesOf(const QString &text) {
  return QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n').split(u'\n');
}

} // namespace

struct FontTextMeasure::Impl {
  Face &FaceOf(const FontSpec &font) {
    const QPair<QString, bool> key(font.family, font.bold);
    std::shared_ptr<Face> &face = faces[key];
    if (!face)
      face = std::make_shared<Face>(ReferenceFont(font.family, font.bold));
    return *face;
  }

  QHash<QPair<QString, bool>, std::shared_ptr<Face>> faces;
};

FontTextMeasure::FontTextMeasure() : m_impl(std::make_unique<Impl>()) {}
FontTextMeasure::~FontTextMeasure() = default;

double FontTextMeasure::Width(const QString &text, const FontSpec &font) {
  Face &face = m_impl->FaceOf(font);
  double widest = 0;
  for (const QString &line : LinesOf(text))
    widest = std::max(widest, face.LineWidth(line));
  return widest * Scale(font);
}

double FontTextMeasure::Height(const QString &text, const FontSpec &font, double wrapWidthPx) {
  Face &face = m_impl->FaceOf(font);
  const double scale = Scale(font);
  const QStringList lines = LinesOf(text);
  qsizetype count = lines.size();
  if (wrapWidthPx > 0 && scale > 0) {
    // The layout counts in whole numbers of limited size; no text is wider than this.
    const double wrapWidth = std::min(wrapWidthPx / scale, 1e6);
    count = 0;
    for (const QString &line : lines)
      count += face.WrappedLines(line, wrapWidth);
  }
  const QFontMetricsF &metrics = face.metrics;
  return static_cast<double>(count) * (metrics.ascent() + metrics.descent() + metrics.leading()) * scale;
}

} // namespace tolmira
