#pragma once

#include "console/ui/console_parts.h"

#include <QWidget>
#include <array>

class QLabel;
class QPushButton;

namespace tolmira {

class ValueSlider;

// The settings of Bible text, in the place of the songs' while a passage is on show.
class BibleSettings : public QWidget {
  Q_OBJECT

public:
  BibleSettings(ConsoleParts parts, QWidget *parent);
  void Atualiza();

private:
  ConsoleParts m_parts;
  ValueSlider *m_sliderExBiblia;
  QLabel *m_valorEstilo;
  ValueSlider *m_slider2;
  QLabel *m_valorFaixa;
  ValueSlider *m_sliderFontSizeAjust;
  QLabel *m_valorTamanho;
  ValueSlider *m_sliderZoomBiblia;
  QLabel *m_valorZoom;
  std::array<QPushButton *, 3> m_image5{}; // left, right, centre
  QPushButton *m_alinhamentoVertical;
  int m_verticalShown = -1;
  std::array<QPushButton *, 2> m_imgBtFontSize{};
};

} // namespace tolmira
