#pragma once

#include "foundation/seams.h"

namespace tolmira {

// The seams as the program runs with them. UserPrompt's real form needs windows and is in foundation/ui.

class SystemClock : public Clock {
public:
  qint64 NowMs() const override;
  std::unique_ptr<PeriodicTimer> NewTimer(std::function<void()> onTick) override;
};

class SystemRandom : public RandomSource {
public:
  double Draw() override;
};

class LoopYielder : public Yielder {
public:
  void Yield(int times) override;
};

// Measures without hinting at a large reference size and scales, so that the result agrees with the page's layout at
// any size. Keeps the last fonts; not for use from two threads.
class FontTextMeasure : public TextMeasure {
public:
  FontTextMeasure();
  ~FontTextMeasure() override;
  double Width(const QString &text, const FontSpec &font) override;
  double Height(const QString &text, const FontSpec &font, double wrapWidthPx) override;

private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

} // namespace tolmira
