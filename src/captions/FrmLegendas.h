#pragma once

#include "captions/ui/caption_doors.h"

#include <QDialog>
#include <QTimer>

class QBoxLayout;
class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace tolmira {

class CaptionLook;
class CaptionPreview;
class PageObject;

// The look of the captions and the server that hands them out.
class FrmLegendas : public QDialog {
  Q_OBJECT

public:
  explicit FrmLegendas(const CaptionDoors &doors);

  void Open(); // and reads the settings
  PageObject *WV() const;

protected:
  void hideEvent(QHideEvent *event) override;

private:
  enum Aba { Biblia, Letras };

  QWidget *Page(CaptionLook *look, const char *save);
  QWidget *MakeServer();
  void CarregaLegendaTemp();
  void MostraPreviaLegenda(int aba);
  void Salva();
  void DizQueNaoGravou();
  void OptionFlat1(bool ligado);
  void BotaoFlat1();
  void BotaoFlat3();
  void MostraServidor();

  CaptionDoors m_doors;
  EstadoLegenda m_temp; // the form's own copy of the settings
  CaptionPreview *m_preview;
  CaptionLook *m_biblia;
  CaptionLook *m_letras;
  QTabWidget *m_abas;
  QLineEdit *m_text1 = nullptr;
  QPushButton *m_botaoFlat1 = nullptr;
  QCheckBox *m_optionFlat1 = nullptr;
  QFrame *m_picServer = nullptr;
  QLabel *m_labelServer = nullptr;
  QLabel *m_labelFalha = nullptr;
  QTimer m_timer1;
  bool m_falhou = false; // the last start by hand
};

} // namespace tolmira
