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
  // True inside Yield. Sockets may speak then (see Yield); whoever takes commands from one keeps them until it is over.
  bool IsYielding() const { return m_depth > 0; }

private:
  int m_depth = 0;
};

class SystemOpener : public DesktopOpener {
public:
  bool Open(const QUrl &address) override;
};

// Measures without hinting at a large reference size and scales, so that the result agrees with the page's layout at
// any size. A missing family is measured as "Arial". Remembers fonts and lines; not for use from two threads.
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
