#include "display/ui/held_picture.h"

#include <QPainter>

namespace tolmira {

HeldPicture::HeldPicture(QWidget *parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  hide();
}

void HeldPicture::Hold(const QPixmap &picture) {
  m_picture = picture;
  setGeometry(parentWidget()->rect());
  show();
  raise();
}

void HeldPicture::Release() {
  hide();
  m_picture = {};
}

void HeldPicture::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.drawPixmap(rect(), m_picture);
}

} // namespace tolmira
