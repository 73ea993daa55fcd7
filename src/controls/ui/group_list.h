#pragma once

#include <QIcon>
#include <QListWidget>

#include <vector>

#include "controls/ui/entry_drag.h"

namespace tolmira {

// A list in groups with a heading each. Groups and entries count from 1; a group without entries shows nothing. An
// entry can be dragged inside its own group only: the list reports the wish and the owner changes the data. What another
// window of the program drags here (EntryDrag) is offered to the owner as well.
class GroupList : public QListWidget {
  Q_OBJECT

public:
  struct Group {
    QString title;
    QIcon icon;
  };
  struct Entry {
    QString label;
    QString tip;
  };

  GroupList(std::vector<Group> groups, QWidget *parent);

  void SetEntries(const std::vector<std::vector<Entry>> &groups); // element 0 is group 1
  void SetChosen(int group, int index);                           // 0, 0 for none
  void SetOnShow(int group, int index);                           // the entry that is on show now; 0, 0 for none
  void SetEmptyText(const QString &text);
  QPair<int, int> Chosen() const;
  QPair<int, int> OnShow() const { return m_onShow; }
  int EntryCount() const;
  // The entry `delta` places further in the whole list, headings left out; the first or last at an end.
  QPair<int, int> Neighbour(int delta) const;

signals:
  void EntryChosen(int group, int index);
  void EntryActivated(int group, int index); // double click
  void EntryMoved(int group, int from, int to);
  void EntryOffered(const EntryDrag &entry); // dropped from another window
  void MenuWanted(const QPoint &globalPos);

protected:
  void paintEvent(QPaintEvent *event) override;
  void resizeEvent(QResizeEvent *event) override; // the chosen entry stays in sight
  void focusInEvent(QFocusEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void contextMenuEvent(QContextMenuEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dragMoveEvent(QDragMoveEvent *event) override;
  void dropEvent(QDropEvent *event) override;
  void startDrag(Qt::DropActions actions) override;

private:
  QListWidgetItem *ItemOf(int group, int index) const;
  int DropIndex(const QPoint &pos) const; // the chosen entry's index after a drop there; 0 for no place of its group

  std::vector<Group> m_groups;
  QPair<int, int> m_onShow{0, 0};
  QString m_emptyText;
};

} // namespace tolmira
