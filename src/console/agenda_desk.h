#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <set>

#include "console/agenda.h"
#include "console/console_panel.h"
#include "display/estado.h"
#include "foundation/ini_store.h"
#include "foundation/seams.h"

namespace tolmira {

// What the operator does with agendas: tabs, adding, removing, renaming, the four buttons of the agenda bar.
class AgendaDesk {
public:
  AgendaDesk(const AppFolder &app, const IniStore &store, EstadoConsole &estado, PainelConsole &painel,
             const FaixaTexto &faixa, ConsoleView *&view, UserPrompt &prompt);

  void SelectTab(int n);  // a click on BotaoFlat5(n)
  void carregaListTarefas(int n);
  // False when the file could not be written; the list is kept in memory then, and the next save tries again. A file
  // that could not be read keeps its entries, and those of the list come behind them.
  bool salvaListTarefas(int n);
  void PorNaLista(const QString &label, int kind, const QString &target, QString &message);

  QString TabTitle(int n) const;
  void RenameTab(int n, const QString &title);
  bool TabHasOwnTitle(int n) const;

  void ClearList();
  void RemoveSelected();
  void MoveEntry(int kind, int from, int to); // drag inside a group; saved at once
  void SelectEntry(int kind, int index);
  QString ClearCaption() const; // "Clear List", or "Clear '<title>'" while the list has items
  bool CanClear() const { return m_lista.ListCount() > 0; }
  bool CanRemove() const { return m_lista.HasSelection(); }
  bool CanShow() const { return m_lista.HasSelection(); }
  bool CanEdit() const; // false while no editor for the selected kind exists

  // The song editor; both empty while there is none.
  struct EditorDeMusicas {
    std::function<bool(const QString &path)> abertoEmOutra; // it stands open on another song
    std::function<bool(const QString &path)> edita;         // false when the file cannot be edited
  };
  EditorDeMusicas editorDeMusicas;
  // The editors of kinds that are documents in a folder, each opened on the file at that stored path; false when it
  // cannot be edited.
  std::map<int, std::function<bool(const QString &path)>> editores;
  // Asks for the file that a video's entry shall name; empty when the operator gave up. It lets the loop run.
  std::function<QString(const QString &atual)> outroVideo;

  // The loaded song under a new name, or the selected item edited: messages of the edit button.
  void EditSelected();
  void RemoveFromAgendas(int kind, const QString &name);
  void RenameInAgendas(const QString &oldName, const QString &newName, int kind);
  void RenameOnScreen(int kind, const QString &oldName, const QString &newName, const QString &newTarget);

  ListTarefas &Lista() { return m_lista; }
  const ListTarefas &Lista() const { return m_lista; }

private:
  QString DicaDaAgenda(int n) const;
  void EditaMusica(const QString &target);
  void EditaVideo(const QString &label, const QString &target);
  QStringList NomesNaAgenda(int kind, const QString &name) const;
  bool NadaNaTira() const; // the console holds no text
  bool Grava(int n, ListTarefas &lista);

  AppFolder m_app;
  const IniStore &m_store;
  EstadoConsole &m_estado;
  PainelConsole &m_painel;
  const FaixaTexto &m_faixa;
  ConsoleView *&m_view;
  UserPrompt &m_prompt;
  AgendaFiles m_files;
  ListTarefas m_lista;
  std::map<int, ListTarefas> m_unsaved; // agendas whose file could not be written
  std::set<int> m_unread;               // agendas whose file could not be read, so that the list lacks its entries
};

} // namespace tolmira
