#pragma once

#include "foundation/seams.h"

#include <algorithm>

namespace tolmira::testing {

// A measure that can be worked out in the head: every character is half as wide as the font is high, and a line is 1.2
// times as high as the font. Lines break at blanks, and inside a word that is longer than the line.
class FixedMeasure : public TextMeasure {
public:
  double Width(const QString &text, const FontSpec &font) override {
    qsizetype longest = 0;
    for (const QString &line : Lines(text))
      longest = std::max(longest, line.size());
    return static_cast<double>(longest) * CharacterWidth(font);
  }

  double Height(const QString &text, const FontSpec &font, double wrapWidthPx) override {
    int count = 0;
    for (const QString &line : Lines(text))
      count += wrapWidthPx > 0 ? WrappedCount(line, wrapWidthPx / CharacterWidth(font)) : 1;
    return count * 1.2 * Pixels(font);
  }

private:
  static double Pixels(const FontSpec &font) { return font.sizePt * 96 / 72; }
  static double CharacterWidth(const FontSpec &font) { return 0.5 * Pixels(font); }

  static QStringList Lines(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n').split(u'\n');
  }

  static int WrappedCount(const QString &line, double room) {
    const qsizetype perLine = std::max<qsizetype>(1, static_cast<qsizetype>(room));
    int count = 1;
    qsizetype used = 0;
    for (const QString &word : line.split(u' ')) {
      qsizetype rest = word.size();
      if (used > 0 && used + 1 + rest > perLine) {
        ++count;
        used = 0;
      }
      for (; used == 0 && rest > perLine; rest -= perLine)
        ++count;
      used += rest + (used > 0 ? 1 : 0);
    }
    return count;
  }
};

} // namespace tolmira::testing
