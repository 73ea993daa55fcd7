#pragma once

#include "media/ui/video_doors.h"

#include <QWidget>
#include <memory>

class QPushButton;

namespace tolmira {

class ElidedLabel;

// The control of the web video on the projection. Closing it leaves the video running. In it Space plays and pauses,
// wherever the focus is.
class FrmYoutubeCtrl : public QWidget {
  Q_OBJECT

public:
  explicit FrmYoutubeCtrl(const VideoDoors &doors);
  ~FrmYoutubeCtrl() override;

  void Open(bool comTeclado); // without it the console keeps the keyboard

signals:
  void Closed();

protected:
  void closeEvent(QCloseEvent *event) override;

private:
  void ImageStop();
  void Atualiza();

  VideoDoors m_doors;
  ElidedLabel *m_labelTitulo;
  ElidedLabel *m_label1;
  ElidedLabel *m_labelAviso;
  QPushButton *m_imagePlay;
  std::unique_ptr<PeriodicTimer> m_timer;
  bool m_mostraPausa = false; // what the button shows
  bool m_closed = false;
};

} // namespace tolmira
