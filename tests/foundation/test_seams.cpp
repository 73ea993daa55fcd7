#include "foundation/real_seams.h"
#include "support/fake_clock.h"
#include "support/fixed_measure.h"
#include "support/scripted_random.h"

#include <QtTest>

using namespace tolmira;
using namespace tolmira::testing;

namespace {

// A clock with the way to let its time pass: the real one runs the loop, the double is advanced.
struct ClockUnderTest {
  std::unique_ptr<Clock> clock;
  std::function<void()> passAWhile;

  bool WaitFor(const std::function<bool()> &condition) const {
    for (QDeadlineTimer deadline(5000); !condition() && !deadline.hasExpired();)
      passAWhile();
    return condition();
  }
};

ClockUnderTest MakeClock(bool real) {
  if (real)
    return {std::make_unique<SystemClock>(), [] { QTest::qWait(1); }};
  auto fake = std::make_unique<FakeClock>();
  return {std::move(fake), {}};
}

std::unique_ptr<TextMeasure> MakeMeasure(bool real) {
  if (real)
    return std::make_unique<FontTextMeasure>();
  return std::make_unique<FixedMeasure>();
}

FontSpec Font(double sizePt) {
  return {QStringLiteral("Arial"), sizePt, true};
}

} // namespace

// What a seam promises is asked of the real one and of its double alike.
class TestSeams : public QObject {
  Q_OBJECT

  ClockUnderTest Prepared(bool real) {
    ClockUnderTest prepared = MakeClock(real);
    if (!real)
      prepared.passAWhile = [fake = static_cast<FakeClock *>(prepared.clock.get())] { fake->Advance(1); };
    return prepared;
  }

  static void BothKinds() {
    QTest::addColumn<bool>("real");
    QTest::newRow("real") << true;
    QTest::newRow("double") << false;
  }

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

  void TimerFiresUntilItIsStopped_data() { BothKinds(); }
  void TimerFiresUntilItIsStopped() {
    QFETCH(bool, real);
    const ClockUnderTest test = Prepared(real);
    int ticks = 0;
    std::unique_ptr<PeriodicTimer> timer;
    timer = test.clock->NewTimer([&] {
      if (++ticks == 3)
        timer->Stop();
    });
    QVERIFY(!timer->IsActive());
    const qint64 before = test.clock->NowMs();
    timer->Start(2);
    QVERIFY(timer->IsActive());
    QCOMPARE(timer->IntervalMs(), 2);
    QVERIFY(test.WaitFor([&] { return !timer->IsActive(); }));
    QCOMPARE(ticks, 3);
    QVERIFY(test.clock->NowMs() > before);
    timer->Start(1);
    QVERIFY(test.WaitFor([&] { return ticks > 3; }));
  }

  void IntervalOfZeroStops_data() { BothKinds(); }
  void IntervalOfZeroStops() {
    QFETCH(bool, real);
    const ClockUnderTest test = Prepared(real);
    int ticks = 0;
    int others = 0;
    const auto timer = test.clock->NewTimer([&] { ++ticks; });
    const auto other = test.clock->NewTimer([&] { ++others; });
    timer->Start(1);
    timer->Start(0);
    QVERIFY(!timer->IsActive());
    QCOMPARE(timer->IntervalMs(), 0);
    timer->Start(-5);
    QVERIFY(!timer->IsActive());
    other->Start(1);
    QVERIFY(test.WaitFor([&] { return others > 3; }));
    QCOMPARE(ticks, 0);
  }

  void TickMayDestroyItsTimer_data() { BothKinds(); }
  void TickMayDestroyItsTimer() {
    QFETCH(bool, real);
    const ClockUnderTest test = Prepared(real);
    int ticks = 0;
    int others = 0;
    std::unique_ptr<PeriodicTimer> timer;
    const auto other = test.clock->NewTimer([&] { ++others; });
    timer = test.clock->NewTimer([&] {
      timer.reset();
      ++ticks;
    });
    timer->Start(1);
    QVERIFY(test.WaitFor([&] { return ticks == 1; }));
    other->Start(1);
    QVERIFY(test.WaitFor([&] { return others > 3; }));
    QCOMPARE(ticks, 1);
  }

  void FakeTimersFireInTheOrderOfTheirTime() {
    FakeClock clock;
    QStringList log;
    const auto note = [&](const QString &name) { return [&, name] { log += name + QString::number(clock.NowMs()); }; };
    const auto slow = clock.NewTimer(note(QStringLiteral("s")));
    const auto quick = clock.NewTimer(note(QStringLiteral("q")));
    slow->Start(30);
    quick->Start(20);
    clock.Advance(60);
    // The slow one was armed for 60 at 30, the quick one at 40.
    QCOMPARE(log.join(u' '), QStringLiteral("q20 s30 q40 s60 q60"));
    QCOMPARE(clock.ActiveTimers(), 2);
  }

  void DrawsLieInTheirRange() {
    SystemRandom random;
    QSet<double> seen;
    for (int i = 0; i < 1000; ++i) {
      const double draw = random.Draw();
      QVERIFY(draw >= 0 && draw < 1);
      seen.insert(draw);
    }
    QVERIFY(seen.size() > 900);
    ScriptedRandom scripted{0.25, 0.5};
    QCOMPARE(scripted.Draw() + scripted.Draw() * 10 + scripted.Draw() * 100, 0.25 + 5 + 25);
  }

  void YieldingRunsTimersAndPostedEvents() {
    LoopYielder yielder;
    bool posted = false;
    bool timed = false;
    bool inside = false;
    QMetaObject::invokeMethod(
        this,
        [&] {
          posted = true;
          inside = yielder.IsYielding();
        },
        Qt::QueuedConnection);
    QTimer::singleShot(0, this, [&] { timed = true; });
    yielder.Yield(2);
    QVERIFY(posted && timed && inside);
    QVERIFY(!yielder.IsYielding());
  }

  void TextGrowsWithSizeAndLength_data() { BothKinds(); }
  void TextGrowsWithSizeAndLength() {
    QFETCH(bool, real);
    const auto measure = MakeMeasure(real);
    const QString line = QStringLiteral("Santo, santo, santo");
    const double width = measure->Width(line, Font(12));
    QVERIFY(width > 0);
    QVERIFY(qAbs(measure->Width(line, Font(24)) - 2 * width) < 0.001 * width);
    QVERIFY(measure->Width(line + u'x', Font(12)) > width);
    QCOMPARE(measure->Width(QString(), Font(12)), 0.0);
    QCOMPARE(measure->Width(QString(u"a\r\n" + line + u"\nb\rc"), Font(12)), width);
    QCOMPARE(measure->Width(line, Font(0)), 0.0);
  }

  void LinesAddUp_data() { BothKinds(); }
  void LinesAddUp() {
    QFETCH(bool, real);
    const auto measure = MakeMeasure(real);
    const FontSpec font = Font(18);
    const auto lines = [&](const QString &text, double wrap) {
      return qRound(1000 * measure->Height(text, font, wrap) / measure->Height(QString(), font, 0));
    };
    QVERIFY(measure->Height(QString(), font, 0) > 0);
    QCOMPARE(lines(QStringLiteral("a"), 0), 1000);
    QCOMPARE(lines(QStringLiteral("a\r\n\r\nb\nc\rd"), 0), 5000);
    QCOMPARE(lines(QStringLiteral("a\r\n"), 0), 2000);
    QCOMPARE(lines(QString(), 100), 1000);
    const QString words = QStringLiteral("luz luz luz luz");
    QCOMPARE(lines(words, 0), 1000);
    const double pair = measure->Width(QStringLiteral("luz luz"), font);
    QCOMPARE(lines(words, pair * 1.05), 2000);
    QCOMPARE(lines(words, pair * 0.95), 4000);
    QCOMPARE(lines(QStringLiteral("luzluzluzluz"), measure->Width(QStringLiteral("luzluz"), font) * 1.05), 2000);
    QCOMPARE(lines(QString(words + u"\r\na"), pair * 1.05), 3000);
  }

  // A browser lays this line out 605.64 pixels wide in bold Arial at 20 pixels, 23 high.
  void WidthsAreThoseOfAPage() {
    FontTextMeasure measure;
    const QString line = QStringLiteral("Porque Deus amou o mundo de tal maneira que deu o seu Filho");
    QVERIFY(qAbs(measure.Width(line, Font(15)) - 605.64) < 0.06);
    QVERIFY(qAbs(measure.Height(line, Font(15), 0) - 23) < 0.5);
    for (const char *missing : {"No Such Family", ""})
      QCOMPARE(measure.Width(line, {QString::fromLatin1(missing), 15, true}), measure.Width(line, Font(15)));
    QVERIFY(measure.Width(line, {QStringLiteral("Times New Roman"), 15, true}) < 0.98 * measure.Width(line, Font(15)));
  }
};

QTEST_MAIN(TestSeams)
#include "test_seams.moc"
