#pragma once

#include "console/ui/console_parts.h"

#include <QWidget>
#include <array>

class QComboBox;
class QLabel;
class QPushButton;

namespace tolmira {

class ValueSlider;

// The settings of the text on show, under the strip. A control keeps its place while it is hidden.
class TextSettings : public QWidget {
  Q_OBJECT

public:
  TextSettings(ConsoleParts parts, QWidget *parent);
  void Atualiza();

private:
  void MakeSliders();
  void MakeButtons();

  ConsoleParts m_parts;
  QLabel *m_lbEstilo;
  ValueSlider *m_sliderExLouvor;
  QLabel *m_valorEstilo;
  QLabel *m_lbFaixa;
  ValueSlider *m_sliderFaixa;
  QLabel *m_valorFaixa;
  QLabel *m_label31;
  ValueSlider *m_sliderZoom;
  QLabel *m_valorZoom;
  QComboBox *m_comboFontSize;
  QLabel *m_lbTamanho;
  QWidget *m_picture4;
  std::array<QPushButton *, 3> m_image4{}; // left, right, centre
  QPushButton *m_alinhamentoVertical;
  int m_verticalShown = -1;
  std::array<QPushButton *, 2> m_imgBtFontSize{};
};

} // namespace tolmira
