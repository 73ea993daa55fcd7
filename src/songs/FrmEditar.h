#pragma once

#include "songs/song_drafts.h"
#include "songs/song_editor.h"
#include "songs/song_editor_parent.h"
#include "songs/spelling.h"
#include "songs/ui/editor_doors.h"

#include <QWidget>
#include <functional>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

class FindBar;
class LyricsEdit;
class StanzaPreview;

// The window in which a song is written or changed. What is typed is kept as a draft until it is saved or given up.
class FrmEditar : public QWidget {
  Q_OBJECT

public:
  FrmEditar(const SongEditorDoors &doors, Spelling &spelling);
  ~FrmEditar() override;

  // "Adicionar" or "Editar", and the song's full stored path. False when the file cannot be edited.
  bool SetDados(const QString &mode, const QString &path);
  void SetDados(const SongDrafts::Found &found); // an unsaved text of an earlier run
  void SetFormPai(SongEditorParent *parent) { m_parent = parent; }

  QString Caminho() const { return m_editor.Caminho(); } // empty for a song that was not saved yet
  // A question of its save stands open, under which it must not be closed.
  bool Ocupado() const { return m_saving; }
  void Open();

  std::function<bool(const QString &path)> AbertoEmOutro;

signals:
  void Closed();
  void FormatWanted(); // the text-format options

protected:
  void closeEvent(QCloseEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void changeEvent(QEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  void MakeBoxes(QVBoxLayout *column);
  void MakeTools(QVBoxLayout *column);
  void MakeSide(QVBoxLayout *column);
  void MakeButtons(QVBoxLayout *column);
  void MakeKeys();

  bool BotaoFlat1(); // save; true when it is on disk
  void Fill(const SongContent &content);
  void ShowName(const SongName &name);
  SongContent Content() const;
  bool IsChanged() const;
  void Edited();
  void ShowChanged();
  void ShowPreview();
  void ShowWarnings(const QString &text, const SongRoom &room);
  void Tell(const QString &text);
  void ChooseLanguage();
  void ShowLanguage();

  SongEditorDoors m_doors;
  Spelling &m_spelling;
  SongEditor m_editor;
  DraftKeeper m_draft;
  SongEditorParent *m_parent = nullptr;
  SongContent m_seen; // what the boxes held when they were last looked at
  QString m_asLoaded; // the text as the box gives it back for what stands on disk
  bool m_languageChosen = false;
  bool m_saving = false;

  QLineEdit *m_text1;
  QLineEdit *m_text3;
  LyricsEdit *m_text2;
  FindBar *m_find;
  QComboBox *m_language;
  StanzaPreview *m_preview;
  QLabel *m_size;
  QLabel *m_stanza;
  QListWidget *m_warnings;
  QLabel *m_state;
  QPushButton *m_save;
  std::unique_ptr<PeriodicTimer> m_timerPreview;
};

} // namespace tolmira
