#pragma once

#include <QDialog>

namespace tolmira {

// The sheet of the operator's keys, in groups. The console can be used while it stands; F1 and Esc close it, and the
// console then has the focus where it had it before.
class FrmAtalhos : public QDialog {
  Q_OBJECT

public:
  explicit FrmAtalhos(QWidget *console);
  void Open();

protected:
  void keyPressEvent(QKeyEvent *event) override;
};

} // namespace tolmira
