#pragma once

#include "notices/notice_sender.h"
#include "notices/ui/notice_doors.h"

#include <QDialog>
#include <QTimer>
#include <functional>

class QLabel;
class QLineEdit;

namespace tolmira {

// Where a notice is written and sent.
class FrmExibeAviso : public QDialog {
  Q_OBJECT

public:
  FrmExibeAviso(const NoticeDoors &doors, std::function<void()> abreLista, std::function<void()> abreConfig);

  void Open(); // one that stands open already keeps what is typed
  void UsaTexto(const QString &texto);

protected:
  void hideEvent(QHideEvent *event) override;

private:
  void LimitaText2();
  void OlhaATela();
  void Envia();

  NoticeDoors m_doors;
  AvisosNaTela m_avisos;
  QLineEdit *m_text1;
  QLineEdit *m_text2;
  QLabel *m_labelAviso;
  QTimer m_olhar;
};

} // namespace tolmira
