#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tolmira {

// One line that says what is under way, how far it is, and stops it. While nothing is under way it shows the last
// outcome, or nothing, and keeps its height, so that no layout jumps.
class WorkStrip : public QWidget {
  Q_OBJECT

public:
  explicit WorkStrip(QWidget *parent);

  void Begin(const QString &text);                              // with an end that is not known yet
  void Advance(const QString &text, qint64 done, qint64 total); // total 0 or less: not known
  void End(const QString &outcome = QString());
  bool IsBusy() const { return m_busy; }

signals:
  void Stopped(); // the operator pressed Stop; the owner ends the work and calls End

private:
  void ShowText(const QString &text);

  QLabel *m_text;
  QProgressBar *m_bar;
  QPushButton *m_stop;
  bool m_busy = false;
};

} // namespace tolmira
