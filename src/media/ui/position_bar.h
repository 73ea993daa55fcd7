#pragma once

#include <QAbstractSlider>

class QFrame;

namespace tolmira {

// The track of a media with its fill. A click jumps there and the pointer can be dragged on; arrows and page keys go by
// seconds, Home and End to the ends. Without media it takes nothing.
class PositionBar : public QAbstractSlider {
  Q_OBJECT

public:
  explicit PositionBar(QWidget *parent);

  void AtualizaBarra(double percentual); // 0 to 100; the fill takes that part of the width
  void SetTemMidia(bool tem);
  QSize sizeHint() const override;

signals:
  void Escolhido(double percentual); // by the operator
  void AoFim();
  void Passo(int seconds);

protected:
  void sliderChange(SliderChange change) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  void Aponta(double x);
  void Preenche();

  QFrame *m_picS1;
  double m_percentual = 0;
  bool m_temMidia = false;
};

} // namespace tolmira
