#include "display/script_queue.h"

#include <QTest>

using tolmira::ScriptQueue;

class TestScriptQueue : public QObject {
  Q_OBJECT

  QStringList m_log;
  ScriptQueue::Job Job(const QString &name) {
    return {[this, name] { m_log.append(name); }, [this, name] { m_log.append(u"-" + name); }};
  }

private slots:
  void init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_log.clear();
  }

  void runsAtOnceWhileNothingLoads() {
    ScriptQueue queue;
    queue.Push(Job(QStringLiteral("a")));
    QCOMPARE(m_log, QStringList({QStringLiteral("a")}));
  }

  void keepsTheOrderUntilThePageIsReady() {
    ScriptQueue queue;
    const int load = queue.Begin();
    for (const QChar name : QStringLiteral("abc"))
      queue.Push(Job(name));
    QVERIFY(m_log.isEmpty());
    QVERIFY(queue.Ready(load));
    queue.Push(Job(QStringLiteral("d")));
    QCOMPARE(m_log.join(u' '), QStringLiteral("a b c d"));
  }

  void aNewerLoadDropsWhatWaited() {
    ScriptQueue queue;
    const int older = queue.Begin();
    queue.Push(Job(QStringLiteral("a")));
    const int newer = queue.Begin();
    queue.Push(Job(QStringLiteral("b")));
    QVERIFY(!queue.Ready(older));
    QCOMPARE(m_log.join(u' '), QStringLiteral("-a"));
    QVERIFY(queue.Ready(newer));
    QVERIFY(!queue.Ready(newer));
    QCOMPARE(m_log.join(u' '), QStringLiteral("-a b"));
  }

  void givingUpDropsAndOpens() {
    ScriptQueue queue;
    queue.Begin();
    queue.Push(Job(QStringLiteral("a")));
    queue.GiveUp();
    queue.Push(Job(QStringLiteral("b")));
    QCOMPARE(m_log.join(u' '), QStringLiteral("-a b"));
  }

  void aRestartKeepsWhatWaits() {
    ScriptQueue queue;
    const int first = queue.Begin();
    queue.Push(Job(QStringLiteral("a")));
    const int second = queue.Restart();
    queue.Push(Job(QStringLiteral("b")));
    QVERIFY(!queue.Ready(first));
    QVERIFY(queue.Ready(second));
    QCOMPARE(m_log.join(u' '), QStringLiteral("a b"));
  }

  void aJobThatLoadsAnotherPageEndsTheOlderOnes() {
    ScriptQueue queue;
    const int load = queue.Begin();
    queue.Push({[&] { queue.Begin(); }, {}});
    queue.Push(Job(QStringLiteral("a")));
    queue.Ready(load);
    QCOMPARE(m_log.join(u' '), QStringLiteral("-a"));
    QVERIFY(queue.IsWaiting());
  }
};

QTEST_GUILESS_MAIN(TestScriptQueue)
#include "test_script_queue.moc"
