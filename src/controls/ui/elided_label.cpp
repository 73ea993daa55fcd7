#include "controls/ui/elided_label.h"

#include <QStyle>
#include <QStylePainter>

namespace tolmira {

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

QSize ElidedLabel::minimumSizeHint() const { return {24, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent *) {
  QStylePainter painter(this);
  painter.drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(),
                       fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()), foregroundRole());
}

} // namespace tolmira
