#include "controls/ui/empty_text.h"

#include "controls/ui/palette.h"

#include <QAbstractItemView>
#include <QPainter>

namespace tolmira {

void PaintEmptyText(QAbstractItemView &list, const QString &text, int marginPx) {
  if (text.isEmpty() || (list.model() && list.model()->rowCount(list.rootIndex()) > 0))
    return;
  QPainter painter(list.viewport());
  painter.setPen(QColor(cores::Quiet));
  painter.drawText(list.viewport()->rect().adjusted(marginPx, marginPx, -marginPx, -marginPx),
                   Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace tolmira
