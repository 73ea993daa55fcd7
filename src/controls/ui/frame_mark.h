#pragma once

#include <QColor>
#include <QWidget>

class QTimer;

namespace tolmira {

// A frame laid around another widget. It lets the mouse through and can blink.
class FrameMark : public QWidget {
  Q_OBJECT

public:
  FrameMark(const QColor &colour, QWidget *parent);
  void Around(const QWidget *target, int marginPx); // both have the same parent
  void SetBlinking(bool blinking);
  bool IsBlinking() const;

protected:
  void paintEvent(QPaintEvent *event) override;
  void hideEvent(QHideEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  QColor m_colour;
  QTimer *m_blink;
  bool m_blinking = false;
  bool m_lit = true;
};

} // namespace tolmira
