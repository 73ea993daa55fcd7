#pragma once

#include "media/ui/video_doors.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tolmira {

// The dialog that puts videos into the agenda: files, several at once, or the link of a web video. Stays open for the
// next one.
class FrmAddVideoNaLista : public QWidget {
  Q_OBJECT

public:
  FrmAddVideoNaLista(const VideoDoors &doors, std::function<void()> abreControle);

  void Open();
  void AtualizaControle(); // a video came on show, or has ended
  void AtualizaAgenda(); // another agenda is active, or it has another title

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void hideEvent(QHideEvent *event) override;

private:
  void CommandVideo();
  void CommandLink();

  VideoDoors m_doors;
  QPushButton *m_commandVideo;
  QPushButton *m_commandControle;
  QPushButton *m_command1;
  QLineEdit *m_text1;
  QLabel *m_label2;
};

} // namespace tolmira
