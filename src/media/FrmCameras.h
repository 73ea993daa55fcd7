#pragma once

#include "media/ui/camera_doors.h"

#include <QWidget>
#include <memory>
#include <vector>

class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace tolmira {

class ElidedLabel;

// The cameras that the page on show can put behind its text, with a button for each. Closing it takes the camera off
// the screen, so Esc closes it only while none is on.
class FrmCameras : public QWidget {
  Q_OBJECT

public:
  explicit FrmCameras(const CameraDoors &doors);
  ~FrmCameras() override;

  void Open();

signals:
  void Closed();

protected:
  void keyPressEvent(QKeyEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  struct Row {
    QWidget *place = nullptr;
    ElidedLabel *label2 = nullptr;
    QLabel *state = nullptr;
    QPushButton *command1 = nullptr;
    QPushButton *command2 = nullptr;
  };
  void Procura();
  void Lista(const QStringList &nomes);
  void NovaCamera(const QString &nome);
  void Cresce();
  void Atualiza();
  void Cala(); // nothing is reported to this window any more

  CameraDoors m_doors;
  QLabel *m_aviso;
  QScrollArea *m_area;
  QWidget *m_picture1;
  QVBoxLayout *m_column;
  QPushButton *m_procura;
  std::vector<Row> m_rows;
  bool m_procurando = false;
  bool m_semResposta = false;
  std::unique_ptr<PeriodicTimer> m_espera;
  bool m_closed = false;
};

} // namespace tolmira
