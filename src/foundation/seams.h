#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace tolmira {

// The doors through which the logic reaches what a test must hold in its own hand: time, chance, the message loop and
// the user. Each has one real implementation and one recording double under tests/support/.

// A periodic timer that a handler starts and stops. Fires on the interface thread.
class PeriodicTimer {
public:
  virtual ~PeriodicTimer() = default;
  virtual void Start(int intervalMs) = 0; // 0 or less stops: an interval of 0 never fires
  virtual void Stop() = 0;
  virtual bool IsActive() const = 0;
  virtual int IntervalMs() const = 0;
};

class Clock {
public:
  virtual ~Clock() = default;
  virtual qint64 NowMs() const = 0; // monotonic
  virtual std::unique_ptr<PeriodicTimer> NewTimer(std::function<void()> onTick) = 0;
};

class RandomSource {
public:
  virtual ~RandomSource() = default;
  virtual double Draw() = 0; // in [0, 1); freshly seeded, so that two runs differ
};

// n yields to the message loop: paints, timers and page traffic run, the user's input waits for its turn, so that no
// second key press is handled in the middle of the first.
class Yielder {
public:
  virtual ~Yielder() = default;
  virtual void Yield(int times) = 0;
};

enum class MessageKind { Information, Warning, Critical, Question };

// Message boxes, file and colour dialogues. The real one is modal; the double answers from a list.
class UserPrompt {
public:
  virtual ~UserPrompt() = default;
  virtual void Message(MessageKind kind, const QString &title, const QString &text) = 0;
  // Index of the button pressed; -1 when the box was closed without one.
  virtual int Ask(const QString &title, const QString &text, const QStringList &buttons) = 0;
  // A line that the user types, beginning with `now`; nothing when the user gave up.
  virtual std::optional<QString> AskText(const QString &title, const QString &text, const QString &now) = 0;
  // The chosen path; empty when the user gave up. `filter` in the toolkit's form ("Pictures (*.png *.jpg)").
  virtual QString OpenFile(const QString &title, const QString &folder, const QString &filter) = 0;
  // The same for several files of one folder.
  virtual QStringList OpenFiles(const QString &title, const QString &folder, const QString &filter) = 0;
  // The chosen colour as the stores write it (0x00BBGGRR), beginning at `now`; nothing when the user gave up.
  virtual std::optional<qint32> PickColour(const QString &title, qint32 now) = 0;
};

// Hands an address to the program that the desktop keeps for it.
class DesktopOpener {
public:
  virtual ~DesktopOpener() = default;
  virtual bool Open(const QUrl &address) = 0; // false when nobody took it
};

// The width and height of text as the page lays it out (96 pixels to the inch).
struct FontSpec {
  QString family;
  double sizePt = 12;
  bool bold = true;
};

class TextMeasure {
public:
  virtual ~TextMeasure() = default;
  // Of the longest line, in pixels. Lines end at CR LF, CR or LF.
  virtual double Width(const QString &text, const FontSpec &font) = 0;
  // Of the text wrapped at `wrapWidthPx` (0: no wrapping), in pixels. An empty line is one line high, as is the empty text.
  virtual double Height(const QString &text, const FontSpec &font, double wrapWidthPx) = 0;
};

} // namespace tolmira
