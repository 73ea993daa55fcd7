#pragma once

#include <QWidget>

#include <memory>

#include "bible/ui/bible_doors.h"

class QLabel;
class QPushButton;

namespace tolmira {

class ReferenceBox;

// The small dialog that puts a Bible reference into the agenda or on the screen. Stays open for the next one.
class FrmAddBibliaNaLista : public QWidget {
  Q_OBJECT

public:
  explicit FrmAddBibliaNaLista(BibleDoors doors);
  void Open();
  void ShowVerse(); // of what is typed, in the version in force

signals:
  void BrowserWanted();
  void SearchWanted();

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void changeEvent(QEvent *event) override;

private:
  void Command1(); // add to the agenda
  void Command3(); // show
  void ShowHint();
  QString TypedReference(); // empty when it names no verse

  BibleDoors m_doors;
  CtrlEnter m_ctrlEnter;
  ReferenceBox *m_text2;
  QLabel *m_verse;
  QLabel *m_label2;
  QLabel *m_hint;
  QPushButton *m_command1;
  QPushButton *m_command3;
  std::unique_ptr<PeriodicTimer> m_timer1; // takes Label2 away
};

} // namespace tolmira
