#pragma once

#include <QWidget>

#include "bible/passage.h"
#include "bible/ui/bible_doors.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace tolmira {

class PassageBar;

// Books, chapters and verses in three columns; typing narrows them. Enter and Ctrl+Enter add and show as in the add
// dialog.
class FrmBibleBrowser : public QWidget {
  Q_OBJECT

public:
  explicit FrmBibleBrowser(BibleDoors doors);
  void Open(); // at the passage on show, else where it was left
  void VersionChanged(); // the columns stay where they are, as far as the version in force has the place

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void changeEvent(QEvent *event) override;

private:
  void MakeColumns();
  void Narrow(); // to what is typed
  void FillBooks(const QList<int> &books, int chosen);
  void FillChapters(int chosen);
  void FillVerses(int chosen);
  void ShowChosen();
  void GoTo(const Passagem &passagem);
  void Accept(bool ctrl);
  void Add();
  void Show();
  void ToNeighbour(QWidget *column, int step);
  Passagem Chosen() const;

  BibleDoors m_doors;
  CtrlEnter m_ctrlEnter;
  QLineEdit *m_filter;
  QListWidget *m_books;
  QListWidget *m_chapters;
  QListWidget *m_verses;
  QLabel *m_reference;
  PassageBar *m_bar;
};

} // namespace tolmira
