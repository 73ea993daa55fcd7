#pragma once

#include <QString>

namespace tolmira {

// What dialogs may ask of the console. They hold this, never the console window.
class Presentation {
public:
  virtual ~Presentation() = default;

  // The show event: `caption` is the entry's label (shown as the title), `name` its target (what is loaded).
  // `index` counts from 1 inside the group; 0 for an entry that is not in the agenda.
  virtual void ShowEntry(int kind, int index, const QString &caption, const QString &name) = 0;

  // Adds to the active agenda; an empty target is replaced by the label. `message` says what came of it, for the
  // caller's status line.
  virtual void PorNaLista(const QString &label, int kind, const QString &target, QString &message) = 0;

  virtual void exibirAgora(const QString &name) = 0; // selects the entry of that label, then shows it
  virtual void exibirSelecinado() = 0;
  // A passage that was typed or picked and that need not be in the agenda: it is loaded and stands on the projection.
  // The caller has made sure that the version in force has the verse.
  virtual void exibirPassagem(const QString &reference) = 0;
  // A web video that was picked and that need not be in the agenda: it comes on show as an entry of kind 4 does, on a
  // projection that is to be seen.
  virtual void exibirVideoDaWeb(const QString &titulo, const QString &link) = 0;
  virtual void cancelaWMP() = 0; // stops a running video
  virtual void editarSelecionado() = 0;
  virtual void removerSelecionadodaLista() = 0;

  virtual void RemoveFromAgendas(int kind, const QString &name) = 0;
  virtual void RenameInAgendas(const QString &oldName, const QString &newName, int kind) = 0;

  // Notifications of the editors: a song was saved under a new or old name, a slide document likewise.
  virtual void ProcessaEditar(const QString &oldName, const QString &newName) = 0;
  virtual void ProcessaEditarSlide(const QString &oldName, const QString &newName) = 0;
};

} // namespace tolmira
