#include "controls/ui/row_list.h"

#include "controls/ui/empty_text.h"

#include <QHeaderView>

namespace tolmira {

RowList::RowList(const QStringList &headings, QWidget *parent) : QTreeWidget(parent) {
  setProperty("look", QStringLiteral("column"));
  setHeaderLabels(headings);
  header()->setSectionResizeMode(QHeaderView::Interactive);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setTabKeyNavigation(false);
}

void RowList::SetEmptyText(const QString &text) {
  m_emptyText = text;
  viewport()->update();
}

void RowList::paintEvent(QPaintEvent *event) {
  QTreeWidget::paintEvent(event);
  PaintEmptyText(*this, m_emptyText, 16);
}

} // namespace tolmira
