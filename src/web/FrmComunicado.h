#pragma once

#include "web/ui/update_doors.h"
#include "web/update.h"

#include <QWidget>
#include <functional>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace tolmira {

class WorkStrip;

// Says that a newer version is looked for, then what the maker says of it, and offers to fetch it.
class FrmComunicado : public QWidget {
  Q_OBJECT

public:
  FrmComunicado(const UpdateDoors &doors, std::function<void(const NovaVersao &)> atualiza);
  void Espera();
  void Mostra(const NovaVersao &nova);

signals:
  void Fechada(); // the operator does not wait any more

protected:
  void hideEvent(QHideEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  FormPositions &m_posicoes;
  std::function<void(const NovaVersao &)> m_atualiza;
  NovaVersao m_nova;
  QLabel *m_label1;
  QPlainTextEdit *m_text1;
  WorkStrip *m_strip;
  QPushButton *m_agora;
  QPushButton *m_depois;
};

} // namespace tolmira
