#pragma once

#include <QString>

#include <array>
#include <map>
#include <vector>

#include "foundation/app_folder.h"

namespace tolmira {

inline constexpr int GruposDaAgenda = 6;
inline constexpr int NumeroDeAgendas = 5;

// One entry of an agenda.
struct Tarefa {
  QString label;  // what the list shows; key of the duplicate test, of rename and removal
  QString target; // what the show event loads
  int estado = 0; // state number of the list, kept for the window

  // The label of a song may be spelt otherwise than its file, which the target names.
  bool Names(const QString &name) const { return label == name || target == name; }
  friend bool operator==(const Tarefa &, const Tarefa &) = default;
};

// The list of the active agenda: six groups, indexes from 1.
class ListTarefas {
public:
  void Clear();
  bool Add(int kind, const QString &label, const QString &target); // false for a kind outside 1 to 6
  void RemoveAt(int kind, int index);
  void Move(int kind, int from, int to); // inside one group; the selection follows the entry
  int Count(int kind) const;
  int ListCount() const;
  QString NameAt(int kind, int index) const;    // label
  QString CaptionAt(int kind, int index) const; // target
  void SetNameAt(int kind, int index, const QString &value);
  void SetCaptionAt(int kind, int index, const QString &value);
  bool HasName(int kind, const QString &name) const;
  // Every entry of the group with that label or target.
  void RemoveName(int kind, const QString &name);
  void RenameName(int kind, const QString &name, const QString &newName, const QString &newTarget);

  void Select(int kind, int index); // out of range selects nothing
  bool SelectByName(const QString &name);
  bool HasSelection() const { return m_kind > 0; }
  int SelectedKind() const { return m_kind; }   // 0 for none
  int SelectedIndex() const { return m_index; } // 0 for none
  QString SelectedName() const;
  QString SelectedCaption() const;

  bool SameEntries(const ListTarefas &other) const { return m_groups == other.m_groups; }

private:
  bool Valid(int kind, int index) const;
  std::array<std::vector<Tarefa>, GruposDaAgenda + 1> m_groups;
  int m_kind = 0;
  int m_index = 0;
};

// A slide's label has no extension, its target has one.
QString LabelAfterRename(const QString &newName, int kind);

// The five files. A save writes the whole file as one step; a file that holds lines which the list cannot hold
// (unknown kinds, broken lines) is copied to agenda<n>.bak before a save that would drop them.
class AgendaFiles {
public:
  explicit AgendaFiles(const AppFolder &app);
  QString Caminho(int n) const;
  // False when there is no file and none can be made, or when it could not be read to its end; the list is empty then.
  bool Carrega(int n, ListTarefas &lista) const;
  bool Salva(int n, const ListTarefas &lista) const;
  // Every line of the kind with that label or target.
  void RemoveFromAgendas(int kind, const QString &name) const;
  void RenameInAgendas(const QString &oldName, const QString &newName, int kind) const;

private:
  template <typename Edit> void Rewrite(int n, Edit edit) const;
  AppFolder m_app;
};

} // namespace tolmira
