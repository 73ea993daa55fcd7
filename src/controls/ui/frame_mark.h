#pragma once

#include <QColor>
#include <QPointer>
#include <QWidget>

class QTimer;

namespace tolmira {

// A frame laid around another widget. It lets the mouse through and can blink.
class FrameMark : public QWidget {
  Q_OBJECT

public:
  FrameMark(const QColor &colour, QWidget *parent);
  void Around(QWidget *target, int marginPx); // follows it from now on; both have the same parent
  void SetBlinking(bool blinking);
  bool IsBlinking() const;

protected:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void Fit();

  QColor m_colour;
  QPointer<QWidget> m_target;
  int m_marginPx = 0;
  QTimer *m_blink;
  bool m_blinking = false;
  bool m_lit = true;
};

} // namespace tolmira
