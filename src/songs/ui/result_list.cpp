#include "songs/ui/result_list.h"

#include "controls/ui/empty_text.h"
#include "controls/ui/palette.h"

namespace tolmira {

void ResultList::SetEmptyText(const QString &text) {
  m_emptyText = text;
  viewport()->update();
}

void ResultList::paintEvent(QPaintEvent *event) {
  QListWidget::paintEvent(event);
  PaintEmptyText(*this, m_emptyText, medidas::Margin);
}

} // namespace tolmira
