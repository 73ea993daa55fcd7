#include "controls/ui/flat_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace tolmira {

QSize FlatButton::minimumSizeHint() const { return {28, QPushButton::minimumSizeHint().height()}; }

int FlatButton::CaptionWidth() const {
  QStyleOptionButton option;
  initStyleOption(&option);
  int width = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
  if (!icon().isNull())
    width -= iconSize().width() + 4;
  return width;
}

bool FlatButton::CaptionIsCut() const {
  return fontMetrics().size(Qt::TextShowMnemonic, text()).width() > CaptionWidth();
}

void FlatButton::paintEvent(QPaintEvent *) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text = fontMetrics().elidedText(text(), Qt::ElideRight, CaptionWidth(), Qt::TextShowMnemonic);
  painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace tolmira
