#pragma once

#include <QDateTime>
#include <QPixmap>
#include <QWidget>

namespace tolmira {

// A picture that covers its widget whole, in its own proportions; what is too much of it is cut off on both sides
// alike.
class PictureLayer : public QWidget {
public:
  explicit PictureLayer(QWidget *parent);
  // False, and the old picture stays, when the file cannot be read as a picture.
  bool Load(const QString &storedPath);

protected:
  void paintEvent(QPaintEvent *event) override;
  void resizeEvent(QResizeEvent *event) override;

private:
  QImage m_picture;
  QString m_path; // of m_picture, with what its file was when it was read
  QDateTime m_changed;
  qint64 m_bytes = 0;
  QPixmap m_scaled; // for the present size; null until it is painted
};

} // namespace tolmira
