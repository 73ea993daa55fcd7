#pragma once

#include "slides/ui/show_doors.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace tolmira {

class ElidedLabel;
class VolumeBox;

// The remote of the slide show on the projection. The show runs for as long as this window stands; closing it brings the
// theme back. In it Space pauses and goes on, wherever the focus is.
class FrmSlideShowControl : public QWidget {
  Q_OBJECT

public:
  explicit FrmSlideShowControl(const ShowDoors &doors);
  ~FrmSlideShowControl() override;

  // Starts the show. A file that has gone is told of, and closes the window.
  void SetSlideShow(const QString &path);
  void Open();
  void ImagemMudou(const QString &nome);

signals:
  void Closed();

protected:
  void closeEvent(QCloseEvent *event) override;

private:
  void Image3();
  void ImageRestart();
  void Inicia();
  void Mostra();
  void MostraImagem(const QString &nome);
  void MostraAvisos(); // that the show has ended, or that its music cannot be played

  ShowDoors m_doors;
  QString m_path;
  ElidedLabel *m_labelTitulo;
  ElidedLabel *m_labelImagemName;
  ElidedLabel *m_labelAviso;
  QPushButton *m_image3;
  QPushButton *m_imageRestart;
  QPushButton *m_imageStop;
  VolumeBox *m_volume;
  bool m_closed = false;
};

} // namespace tolmira
