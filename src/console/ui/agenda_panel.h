#pragma once

#include <QWidget>

#include <array>

#include "console/ui/console_parts.h"

class QGridLayout;
class QMenu;

namespace tolmira {

class FlatButton;
class GroupList;
class TabButton;
class TabRow;

// The agenda's column: tabs, the list in six groups, and the bar of four buttons.
class AgendaPanel : public QWidget {
  Q_OBJECT

public:
  AgendaPanel(ConsoleParts parts, QWidget *parent);

  void AgendaChanged(); // entries, selection, tab or titles
  void Atualiza();      // what is on show
  void SelectNeighbour(int delta); // the next or previous entry of the list, which gets the focus
  void MoveSelected(int delta);    // inside its group
  GroupList *Lista() { return m_lista; }
  void SetCompact(bool compact);

private:
  void FillList();
  void MakeBar();
  void ShowMenu(const QPoint &globalPos);

  ConsoleParts m_parts;
  TabRow *m_tabs;
  std::array<TabButton *, NumeroDeAgendas + 1> m_tab{};
  GroupList *m_lista;
  std::array<FlatButton *, 5> m_bar{}; // from 1
  QGridLayout *m_barGrid = nullptr;
  ListTarefas m_shown;                 // what the list holds, so that a new selection fills nothing again
  int m_shownAgenda = 0;               // whose list that is
  QMenu *m_menu;
};

} // namespace tolmira
