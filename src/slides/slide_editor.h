#pragma once

#include "foundation/app_folder.h"
#include "foundation/drafts.h"
#include "foundation/seams.h"
#include "slides/slide_document.h"
#include "slides/slide_drafts.h"
#include "slides/slide_history.h"

#include <QString>
#include <functional>

namespace tolmira {

// One slide document while it is made or changed. The operator is told through the prompt; whatever does not succeed
// changes nothing here, so that nothing is lost. Slides count from 1.
class SlideEditor {
public:
  SlideEditor(const AppFolder &app, UserPrompt &prompt) : m_app(app), m_prompt(prompt) {}

  // With a path that document, in whatever case the path is; false when there is no file that can be read whole as
  // text, and nothing has changed then. Without one a new document, which takes its look from the template.
  bool LoadSlide(const QString &path);
  // What an earlier run left behind. Where the document was changed since, it is a new one.
  void LoadDraft(const SlideDraft &draft);
  SlideDraft Draft() const { return {m_path, nome, m_now.documento, m_file}; }

  const QString &Path() const { return m_path; } // the file's name as the disk spells it; empty for a new document
  const SlideDocument &Documento() const { return m_now.documento; }
  int Indice() const { return m_now.indice; } // the slide that is being edited; 0 for none
  bool Alterado() const;

  QString nome;           // TxtNomeArquivo, as it is typed
  QString Titulo() const; // of the window

  void AddImage(const QString &path);       // a slide at the end, which is edited then
  void AddImages(const QStringList &paths); // slides at the end, as one step; the first of them is edited then
  void TrocaImagem(const QString &path);    // of the slide that is being edited
  void RemoveSlide(int index);
  void DuplicaSlide(int index);
  void MoveSlide(int from, int to);
  void SelecionaSlide(int index);

  // Of the slide that is being edited. The texts are cut to what comes back whole from the file; what stands there then
  // is in Documento().
  void DefineTitulo(const QString &titulo);
  void DefineTexto(const QString &texto); // any line ends
  void DefineAlinhamento(qint16 alinhamento);
  void DefineEspacamento(qint16 decimos);
  void DefineFontSize(qint16 porCento);
  void DefineIncluirTexto(bool incluir);

  void DefineIntervalo(int posicao);
  void DefineVisual(const TemaRecord &visual);

  bool PodeDesfazer() const { return m_history.CanUndo(); }
  bool PodeRefazer() const { return m_history.CanRedo(); }
  void Desfaz();
  void Refaz();

  // False after a message: documents and files are as they were.
  bool SalvarSlide();
  // Makes this document the template of new ones, and leaves a new one here. One without slides brings back the look
  // that the program itself begins with. False after a message.
  bool SalvarModelo();

  // After each save, with file names; there was no old one before the first save of a document.
  std::function<void(const QString &oldName, const QString &newName)> Salvou;

private:
  using Moment = SlideHistory::Moment;
  void Change(const QString &key, const std::function<void(Moment &)> &change);
  void ChangeSlide(const char *key, const std::function<void(Slide &)> &change);
  void ChangeText(const char *key, QString Slide::*field, const QString &text);
  void Begin(const QString &path, const SlideDocument &documento);
  QString Target() const { return m_app.At(u"\\Slides\\") + nome + u".sld"; }
  bool IsOwn(const QString &target) const;
  bool NameIsGood();
  bool MayWriteOver(const QString &target);
  void FinishRename(const QString &target);
  void Say(MessageKind kind, const QString &text);

  const AppFolder m_app;
  UserPrompt &m_prompt;
  QString m_path;
  FileState m_file;
  Moment m_now;
  SlideDocument m_saved;
  QString m_savedName;
  SlideHistory m_history;
};

// What of a change of a text fits into the file: all of it, or as much of what was put in as there is room for.
QString TextThatFits(const QString &before, const QString &after);

} // namespace tolmira
