#pragma once

#include "web/ui/update_doors.h"

#include <QUrl>
#include <QWidget>
#include <memory>

namespace tolmira {

class WorkStrip;

// Downloads the installer of the newer version to the desktop's folder, hands it over and ends the program.
class FrmUp : public QWidget {
  Q_OBJECT

public:
  // `pagina` is where people get it, invalid when that is not known.
  FrmUp(const UpdateDoors &doors, const QUrl &instalador, const QUrl &pagina);
  // To the front; the first time the download begins.
  void Open();

protected:
  void hideEvent(QHideEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  void Baixa();
  void Acabou(const FimDoDownload &fim);
  void Falhou(const QString &conselho);

  UpdateDoors m_doors;
  QUrl m_instalador;
  QUrl m_pagina;
  QString m_arquivo; // real path
  bool m_comecou = false;
  WorkStrip *m_strip;
  std::unique_ptr<WebTask> m_dl1;
};

} // namespace tolmira
