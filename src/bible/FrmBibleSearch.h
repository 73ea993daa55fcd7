#pragma once

#include <QTimer>
#include <QWidget>

#include <optional>

#include "bible/ui/bible_doors.h"
#include "bible/word_search.h"

class QLabel;
class QLineEdit;
class QTreeView;

namespace tolmira {

class HitModel;
class PassageBar;

// Finds verses of the version in force by their words and lists them as they are found. Enter shows the chosen verse,
// Ctrl+Enter adds it to the agenda.
class FrmBibleSearch : public QWidget {
  Q_OBJECT

public:
  explicit FrmBibleSearch(BibleDoors doors);
  void Open();
  void StartSearch(); // for what is typed, in the version in force

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void SearchOn(); // the next slice
  void ShowState();
  void ShowChosen();
  void Add();
  void Show();
  std::optional<SearchHit> Chosen() const;
  QString ChosenReference() const; // empty while no row is chosen

  BibleDoors m_doors;
  QLineEdit *m_query;
  QLabel *m_state;
  QTreeView *m_list;
  HitModel *m_hits;
  PassageBar *m_bar;
  std::optional<WordSearch> m_search; // while it runs
  QueryState m_estado = QueryState::Empty;
  QTimer m_slice;
  QString m_searchedVersion;
};

} // namespace tolmira
