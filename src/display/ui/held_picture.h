#pragma once

#include <QPixmap>
#include <QWidget>

namespace tolmira {

// The last picture of a page, laid over the page host while the next page draws its first one.
class HeldPicture : public QWidget {
public:
  explicit HeldPicture(QWidget *parent);
  void Hold(const QPixmap &picture); // covers the parent, in front of all its children
  void Release();                    // gives the picture's memory back, too

protected:
  void paintEvent(QPaintEvent *event) override;

private:
  QPixmap m_picture;
};

} // namespace tolmira
