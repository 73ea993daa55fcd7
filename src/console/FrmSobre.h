#pragma once

#include <QDialog>
#include <QString>

namespace tolmira {

// What the program runs on, as About says it. An empty text is left out.
struct MotorDoPrograma {
  QString qt;
  QString webEngine;
  QString chromium;
  QString mpv;
  QString desenho; // how pages are drawn
};

// Name, version, engine and licences.
class FrmSobre : public QDialog {
  Q_OBJECT

public:
  FrmSobre(const MotorDoPrograma &motor, QWidget *console);
};

} // namespace tolmira
