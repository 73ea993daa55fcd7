#pragma once

#include <QImage>
#include <QPointF>
#include <QWidget>

namespace tolmira {

// A field of colours with a swatch of the chosen one beside it: while the mouse button is held the colour under the pointer is taken,
// arrow keys move the mark. Colours are those of the stores (0x00BBGGRR).
class ColourField : public QWidget {
  Q_OBJECT

public:
  ColourField(const char *name, const QString &spoken, QWidget *parent);
  void SetColour(qint32 colour); // may be one that the field lacks; the mark then stands at one like it
  qint32 Colour() const { return m_colour; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

signals:
  void Changed(qint32 colour); // by the operator

protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void focusOutEvent(QFocusEvent *event) override;

private:
  QRect Field() const;
  QRect Swatch() const;
  void Take(const QPointF &place);
  void TellColour();

  QString m_spoken;
  qint32 m_colour = 0;
  QPointF m_place; // of the mark, both from 0 to 1: hue, or grey at the right edge, and darkness
  QImage m_drawn;
};

} // namespace tolmira
