#pragma once

#include "media/ui/video_doors.h"

#include <QWidget>
#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tolmira {

class ElidedLabel;
class PositionBar;
class VolumeBox;

// The control of the local video on the projection. Closing it leaves the video running. In it Space plays and pauses,
// wherever the focus is.
class FrmVideoControl : public QWidget {
  Q_OBJECT

public:
  explicit FrmVideoControl(const VideoDoors &doors);
  ~FrmVideoControl() override;

  void Open(bool comTeclado); // without it the console keeps the keyboard

signals:
  void Closed();

protected:
  void closeEvent(QCloseEvent *event) override;

private:
  void MakeTrack(QVBoxLayout *column);
  void MakeButtons(QVBoxLayout *column);
  void MakeSound(QVBoxLayout *column);
  void Image3(VideoControl::Botao botao);
  void TickProgress();
  void MostraAviso(const VideoControl::Progresso &visto);
  void MostraFaixas();

  VideoDoors m_doors;
  ElidedLabel *m_labelTitulo;
  QLabel *m_label1;
  QLabel *m_label2;
  PositionBar *m_picS2;
  std::array<QPushButton *, 3> m_image3{};
  QPushButton *m_imageStop;
  QCheckBox *m_checkLoop;
  VolumeBox *m_volume;
  QLabel *m_labelAudio;
  QComboBox *m_comboAudio;
  ElidedLabel *m_labelAviso;
  QList<FaixaDeAudio> m_faixas; // as the box lists them
  bool m_mostraPausa = false;   // what the middle button shows
  std::unique_ptr<PeriodicTimer> m_timerProgress;
  bool m_closed = false;
};

} // namespace tolmira
