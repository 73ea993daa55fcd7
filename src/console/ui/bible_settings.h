#pragma once

#include <QWidget>

#include <array>

#include "console/ui/console_parts.h"

class QLabel;
class QPushButton;
class QSlider;

namespace tolmira {

// The settings of Bible text, in the place of the songs' while a passage is on show.
class BibleSettings : public QWidget {
  Q_OBJECT

public:
  BibleSettings(ConsoleParts parts, QWidget *parent);
  void Atualiza();

private:
  ConsoleParts m_parts;
  QSlider *m_sliderExBiblia;
  QLabel *m_valorEstilo;
  QSlider *m_slider2;
  QLabel *m_valorFaixa;
  QSlider *m_sliderFontSizeAjust;
  QLabel *m_valorTamanho;
  QSlider *m_sliderZoomBiblia;
  QLabel *m_valorZoom;
  std::array<QPushButton *, 3> m_image5{}; // left, right, centre
};

} // namespace tolmira
