#include "controls/ui/flat_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace tolmira {

namespace {

constexpr int IconGap = 4;        // what the style leaves between icon and text
constexpr QChar Space(u'\u2002'); // and what the look adds to it

} // namespace

QSize FlatButton::sizeHint() const {
  QSize hint = QPushButton::sizeHint();
  if (!icon().isNull() && !text().isEmpty())
    hint.rwidth() += fontMetrics().horizontalAdvance(Space);
  return hint;
}

QSize FlatButton::minimumSizeHint() const { return {28, QPushButton::minimumSizeHint().height()}; }

int FlatButton::CaptionWidth() const {
  QStyleOptionButton option;
  initStyleOption(&option);
  int width = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
  if (!icon().isNull())
    width -= iconSize().width() + IconGap + fontMetrics().horizontalAdvance(Space);
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
  if (!icon().isNull())
    option.text.prepend(Space);
  painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace tolmira
