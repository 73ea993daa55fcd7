#pragma once

#include <QWidget>

class QLabel;

namespace tolmira {

class ValueSlider;

// A volume from 0 to 100 with its number: the controls `sliderVolume` and `LbVolume` of a window that plays something.
class VolumeBox : public QWidget {
  Q_OBJECT

public:
  VolumeBox(const QString &spoken, QWidget *parent); // also the tool tip

  void Mostra(int volume); // tells nobody

signals:
  void Changed(int volume); // by the operator

private:
  ValueSlider *m_slider;
  QLabel *m_number;
};

} // namespace tolmira
