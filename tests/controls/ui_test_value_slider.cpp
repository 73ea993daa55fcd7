#include "controls/ui/value_slider.h"

#include <QSignalSpy>
#include <QtTest>

using namespace tolmira;

class UiTestValueSlider : public QObject {
  Q_OBJECT

private slots:
  void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )"))); }

  // A drag asks for far more values than there are frames. Whatever is left out, the last one arrives.
  void aDragHandsOnOneValueAFrameAndAlwaysTheLast() {
    ValueSlider slider;
    slider.setRange(0, 1000);
    QSignalSpy handed(&slider, &ValueSlider::Changed);
    slider.setSliderDown(true);
    for (int value = 1; value <= 1000; ++value)
      slider.setSliderPosition(value);
    QCOMPARE(handed.size(), 1); // all of them lie in one frame, since the loop did not turn
    QCOMPARE(handed.first().first().toInt(), 1);
    QTRY_COMPARE(handed.size(), 2);
    QCOMPARE(handed.last().first().toInt(), 1000);
    slider.setSliderPosition(5);
    slider.setSliderDown(false);
    QCOMPARE(handed.last().first().toInt(), 5); // at once, with the hand that lets go
    QTest::qWait(50);
    QCOMPARE(handed.size(), 3);
  }

  void aStepByKeyIsHandedOnAtOnceAndKeepsTheFocus() {
    QWidget window;
    ValueSlider slider(&window);
    QWidget strip(&window);
    strip.setFocusPolicy(Qt::StrongFocus);
    slider.setRange(0, 10);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    slider.setFocus();
    QList<int> handed;
    connect(&slider, &ValueSlider::Changed, &slider, [&](int value) {
      handed << value;
      strip.setFocus();
    });
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_End, Qt::Key_Home})
      QTest::keyClick(&slider, key);
    QCOMPARE(handed, (QList<int>{1, 2, 10, 0}));
    QVERIFY(slider.hasFocus());
    slider.setValue(4); // not by key
    QVERIFY(strip.hasFocus());
  }
};

QTEST_MAIN(UiTestValueSlider)
#include "ui_test_value_slider.moc"
