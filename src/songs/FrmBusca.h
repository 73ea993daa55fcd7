#pragma once

#include "songs/lyrics_search.h"
#include "songs/ui/lyrics_doors.h"

#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

class ResultList;
class StanzaPreview;
class WorkStrip;

// The window that fetches lyrics from a site: what it found on the left, the lyrics for checking on the right. Closing
// it ends what is under way and keeps what stands in it.
class FrmBusca : public QWidget {
  Q_OBJECT

public:
  explicit FrmBusca(LyricsDoors doors);
  ~FrmBusca() override;

  // With these words in the search box; empty leaves what stands there.
  void Open(const QString &palavras = QString());

protected:
  void keyPressEvent(QKeyEvent *event) override;
  bool eventFilter(QObject *watched, QEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void changeEvent(QEvent *event) override;

private:
  void MakeSearch(QVBoxLayout *column);
  QWidget *MakeRows();
  QWidget *MakeBoxes();
  void MakeButtons(QVBoxLayout *column);

  void ShowRows();
  void ShowWork();
  void ShowLyrics();
  void ShowPreview();
  void ShowName(); // whether a song of that name is there
  SongContent Content() const;
  void Save();
  void SaveAndAdd();

  LyricsDoors m_doors;
  LyricsSearch m_busca;
  QComboBox *m_site;
  QLineEdit *m_text1;
  QPushButton *m_command1;
  ResultList *m_list1;
  QPushButton *m_artista;
  QLineEdit *m_text3;
  QLineEdit *m_text4;
  QPlainTextEdit *m_text2;
  StanzaPreview *m_preview;
  QLabel *m_tamanho;
  QLabel *m_jaExiste;
  QPushButton *m_salvar;
  WorkStrip *m_strip;
  bool m_sobrescreve = false; // what the save button says
  std::unique_ptr<PeriodicTimer> m_timerPreview;
};

} // namespace tolmira
