#pragma once

#include <QColor>
#include <QTextLayout>
#include <QFont>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <unordered_map>

namespace tolmira {

// A tall text that slides behind a fixed frame. What lies in the frame is bright, the rest dimmed, and one span can be
// marked in a colour. The text is laid out once when its content changes; a move only paints. Lines break where
// a measure without hinting breaks them, at any size. All lengths are pixels with fractions, in the coordinates of this
// widget except where "in the strip" is said.
class TextStrip : public QWidget {
  Q_OBJECT

public:
  struct Content {
    QString text; // lines end at CR LF, CR or LF
    QString family;
    bool bold = true;
    double fontPx = 20;
    double lineHeight = 24; // distance of two lines
    Qt::Alignment alignment = Qt::AlignHCenter;
    double left = 0;  // of the text column
    double width = 0; // the text wraps here
    friend bool operator==(const Content &, const Content &) = default;
  };

  explicit TextStrip(QWidget *parent = nullptr);

  void SetContent(const Content &content);
  void SetTop(double top); // may lie far outside of the widget
  void SetFrame(const QRectF &frame);
  void SetMark(double top, double bottom, const QColor &colour); // in the strip; none when bottom is not below top
  double Top() const { return m_top; }
  int LineCount() const { return int(m_lines.size()); }

  // The lines between these (in the strip) stay bright in the frame and the rest there steps back; none when bottom is
  // not below top: then all in the frame is bright.
  void SetBright(double top, double bottom);

  // The frame as its owner paints it when no text is there.
  static void PaintFrame(QPainter &painter, const QRectF &frame);

signals:
  // The left mouse button; `y` is in the strip at its top of that moment.
  void Pressed(double y);
  void Dragged(double y);
  void Released(double y);

protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;

private:
  void LayOut();
  void PaintLines(QPainter &painter, const QColor &colour, double from, double to);
  const QTextLayout &LayoutOf(int index);

  Content m_content;
  double m_top = 0;
  QRectF m_frame;
  double m_brightTop = 0;
  double m_brightBottom = 0;
  double m_markTop = 0;
  double m_markBottom = 0;
  QColor m_markColour;
  QFont m_font;
  QStringList m_lines;
  std::unordered_map<int, std::unique_ptr<QTextLayout>> m_layouts; // of the lines painted so far
  bool m_dragging = false;
};

} // namespace tolmira
