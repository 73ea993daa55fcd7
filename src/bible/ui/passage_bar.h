#pragma once

#include <QWidget>

#include "bible/ui/bible_doors.h"

class QLabel;

namespace tolmira {

// The foot of a window in which a verse is chosen: its whole text, what can be done with it, and what came of that.
class PassageBar : public QWidget {
  Q_OBJECT

public:
  PassageBar(const BibleDoors &doors, QWidget *window);

  void SetText(const QString &text);
  void SetHint(const QString &hint); // which keys add and show
  void ClearMessage();

  // Nothing for an empty reference, or one that the version in force does not have. The focus stays in the window.
  void Add(const QString &reference);
  void Show(QString reference);

signals:
  void AddWanted();
  void ShowWanted();

private:
  BibleDoors m_doors;
  QLabel *m_text;
  QLabel *m_message;
  QLabel *m_hint;
};

} // namespace tolmira
