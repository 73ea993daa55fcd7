#pragma once

#include "controls/ui/entry_drag.h"
#include "songs/song_finder.h"

#include <QListView>
#include <optional>

namespace tolmira {

class SongListModel;

// The list of songs: shows what its finder lists and passes on what the operator does with a row.
class ListMusicas : public QListView {
  Q_OBJECT

public:
  ListMusicas(const AppFolder &app, Clock &clock, QWidget *parent);

  SongFinder &Finder() { return m_finder; }
  const SongFinder &Finder() const { return m_finder; }

  int Row() const; // -1 for none
  void SelectRow(int row);
  QString Texto() const;   // the selected row's; empty for none
  QString Caminho() const; // stored path of the selected row's file; empty for none
  bool TemCaminho() const; // whether the selected row's file can be opened at all

  void SetEmptyText(const QString &text);

  // What a drag of the selected row carries; nothing when it may not be dragged. Empty: no row can be dragged.
  std::function<std::optional<EntryDrag>()> OnDrag;

signals:
  void RowChanged();            // another row is selected, or none
  void RowActivated(bool ctrl); // double click, or Enter; `ctrl` when Ctrl, and nothing else, was held
  void Listed();                // the rows are others
  void SearchChanged();
  void Typed(const QString &text); // a letter that belongs into the box
  void Left();                     // Escape
  void LeftUp();                   // Up on the first row

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void startDrag(Qt::DropActions actions) override;
  void paintEvent(QPaintEvent *event) override;
  void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
  void focusInEvent(QFocusEvent *event) override;

private:
  SongFinder m_finder;
  SongListModel *m_model;
  QString m_emptyText;
};

} // namespace tolmira
