#include "controls/ui/group_list.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "controls/ui/empty_text.h"
#include "controls/ui/palette.h"

namespace tolmira {

namespace {

constexpr int GroupRole = Qt::UserRole;
constexpr int IndexRole = Qt::UserRole + 1; // 0 for a heading
constexpr int CountRole = Qt::UserRole + 2; // on a heading
constexpr int OnShowRole = Qt::UserRole + 3;

class RowDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    const bool heading = index.data(IndexRole).toInt() == 0;
    return {option.rect.width(), heading ? (index.row() == 0 ? 30 : 38) : 30};
  }

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(IndexRole).toInt() == 0)
      PaintHeading(*painter, option, index);
    else
      PaintEntry(*painter, option, index);
    painter->restore();
  }

private:
  static void PaintHeading(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    QRect row = option.rect;
    row.setTop(row.bottom() - 29);
    index.data(Qt::DecorationRole).value<QIcon>().paint(&painter, QRect(row.left() + 8, row.top() + 7, 16, 16));
    QFont font = option.font;
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(cores::Quiet));
    painter.drawText(row.adjusted(32, 0, -40, 0), Qt::AlignVCenter, index.data(Qt::DisplayRole).toString());
    painter.setFont(option.font);
    painter.drawText(row.adjusted(0, 0, -10, 0), Qt::AlignVCenter | Qt::AlignRight,
                     QString::number(index.data(CountRole).toInt()));
  }

  static void PaintEntry(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) {
    const QRectF face = QRectF(option.rect).adjusted(2.5, 1.5, -2.5, -1.5);
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const bool focused = chosen && option.widget && option.widget->hasFocus();
    if (chosen || option.state.testFlag(QStyle::State_MouseOver)) {
      painter.setBrush(QColor(chosen ? cores::Selection : cores::Hover));
      painter.setPen(focused ? QPen(QColor(cores::Accent), 1) : QPen(Qt::NoPen));
      painter.drawRoundedRect(face, medidas::Corner - 1, medidas::Corner - 1);
    }
    QFont font = option.font;
    const bool onShow = index.data(OnShowRole).toBool();
    if (onShow) {
      QPainterPath play;
      const double y = face.center().y();
      play.moveTo(face.left() + 12, y - 5);
      play.lineTo(face.left() + 20, y);
      play.lineTo(face.left() + 12, y + 5);
      play.closeSubpath();
      painter.fillPath(play, QColor(cores::Live));
      font.setBold(true);
    }
    painter.setFont(font);
    painter.setPen(QColor(cores::Text));
    const QRect text = option.rect.adjusted(32, 0, -10, 0);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(font).elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight, text.width()));
  }
};

} // namespace

GroupList::GroupList(std::vector<Group> groups, QWidget *parent) : QListWidget(parent), m_groups(std::move(groups)) {
  setItemDelegate(new RowDelegate(this));
  setSelectionMode(QAbstractItemView::SingleSelection);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setDragDropMode(QAbstractItemView::InternalMove);
  setDefaultDropAction(Qt::MoveAction);
  setMouseTracking(true);
  setUniformItemSizes(false);
  connect(this, &QListWidget::itemSelectionChanged, this, [this] {
    const auto [group, index] = Chosen();
    emit EntryChosen(group, index);
  });
}

void GroupList::SetEntries(const std::vector<std::vector<Entry>> &groups) {
  const QSignalBlocker quiet(this);
  const QPair<int, int> chosen = Chosen();
  clear();
  for (size_t g = 0; g < groups.size() && g < m_groups.size(); ++g) {
    if (groups[g].empty())
      continue;
    auto *heading = new QListWidgetItem(m_groups[g].icon, m_groups[g].title, this);
    heading->setFlags(Qt::NoItemFlags);
    heading->setData(GroupRole, int(g) + 1);
    heading->setData(IndexRole, 0);
    heading->setData(CountRole, int(groups[g].size()));
    int index = 0;
    for (const Entry &entry : groups[g]) {
      auto *item = new QListWidgetItem(entry.label, this);
      item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
      item->setData(GroupRole, int(g) + 1);
      item->setData(IndexRole, ++index);
      item->setToolTip(entry.tip);
      item->setData(Qt::AccessibleTextRole, entry.label);
      item->setData(Qt::AccessibleDescriptionRole, m_groups[g].title);
    }
  }
  const QPair<int, int> onShow = m_onShow;
  m_onShow = {0, 0};
  SetOnShow(onShow.first, onShow.second);
  SetChosen(chosen.first, chosen.second);
}

QListWidgetItem *GroupList::ItemOf(int group, int index) const {
  if (index < 1)
    return nullptr;
  for (int row = 0; row < count(); ++row)
    if (item(row)->data(GroupRole).toInt() == group && item(row)->data(IndexRole).toInt() == index)
      return item(row);
  return nullptr;
}

void GroupList::SetChosen(int group, int index) {
  const QSignalBlocker quiet(this);
  QListWidgetItem *wanted = ItemOf(group, index);
  if (!wanted) {
    setCurrentItem(nullptr);
    clearSelection();
  } else if (currentItem() != wanted || !wanted->isSelected()) {
    setCurrentItem(wanted);
    scrollToItem(wanted);
  }
}

void GroupList::SetOnShow(int group, int index) {
  if (m_onShow == QPair<int, int>(group, index))
    return;
  const QSignalBlocker quiet(this);
  if (QListWidgetItem *old = ItemOf(m_onShow.first, m_onShow.second))
    old->setData(OnShowRole, false);
  m_onShow = {group, index};
  if (QListWidgetItem *now = ItemOf(group, index))
    now->setData(OnShowRole, true);
  viewport()->update();
}

void GroupList::SetEmptyText(const QString &text) {
  m_emptyText = text;
  viewport()->update();
}

QPair<int, int> GroupList::Chosen() const {
  const QList<QListWidgetItem *> chosen = selectedItems();
  if (chosen.isEmpty())
    return {0, 0};
  return {chosen.first()->data(GroupRole).toInt(), chosen.first()->data(IndexRole).toInt()};
}

int GroupList::EntryCount() const {
  int entries = 0;
  for (int row = 0; row < count(); ++row)
    entries += item(row)->data(IndexRole).toInt() > 0;
  return entries;
}

QPair<int, int> GroupList::Neighbour(int delta) const {
  const QList<QListWidgetItem *> chosen = selectedItems();
  int row = chosen.isEmpty() ? (delta > 0 ? -1 : count()) : this->row(chosen.first());
  const int step = delta > 0 ? 1 : -1;
  QPair<int, int> found = Chosen();
  for (int left = qAbs(delta); left > 0;) {
    row += step;
    if (row < 0 || row >= count())
      break;
    if (item(row)->data(IndexRole).toInt() == 0)
      continue;
    found = {item(row)->data(GroupRole).toInt(), item(row)->data(IndexRole).toInt()};
    --left;
  }
  return found;
}

void GroupList::paintEvent(QPaintEvent *event) {
  QListWidget::paintEvent(event);
  PaintEmptyText(*this, m_emptyText, 16);
}

// The view takes the first entry for its place without showing it, and the first Down would leap over that entry.
void GroupList::focusInEvent(QFocusEvent *event) {
  QListWidget::focusInEvent(event);
  if (!selectedItems().isEmpty())
    return;
  const QSignalBlocker quiet(this);
  setCurrentItem(nullptr);
}

void GroupList::resizeEvent(QResizeEvent *event) {
  QListWidget::resizeEvent(event);
  if (const QListWidgetItem *chosen = currentItem())
    scrollToItem(chosen);
}

void GroupList::mouseDoubleClickEvent(QMouseEvent *event) {
  QListWidget::mouseDoubleClickEvent(event);
  const QListWidgetItem *hit = itemAt(event->pos());
  if (event->button() == Qt::LeftButton && hit && hit->data(IndexRole).toInt() > 0)
    emit EntryActivated(hit->data(GroupRole).toInt(), hit->data(IndexRole).toInt());
}

void GroupList::contextMenuEvent(QContextMenuEvent *event) {
  if (event->reason() != QContextMenuEvent::Mouse) {
    const QList<QListWidgetItem *> chosen = selectedItems();
    if (!chosen.isEmpty())
      emit MenuWanted(viewport()->mapToGlobal(visualItemRect(chosen.first()).center()));
    return;
  }
  const QListWidgetItem *hit = itemAt(event->pos());
  if (hit && hit->data(IndexRole).toInt() > 0)
    emit MenuWanted(event->globalPos());
}

// The view's own drag would remove the row that it believes to have moved, after the owner has moved the entry.
void GroupList::startDrag(Qt::DropActions) {
  const QModelIndexList chosen = selectedIndexes();
  if (chosen.isEmpty())
    return;
  const QRect row = visualRect(chosen.first());
  auto *drag = new QDrag(this);
  drag->setMimeData(model()->mimeData(chosen));
  drag->setPixmap(viewport()->grab(row));
  drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
  drag->exec(Qt::MoveAction);
}

// The upper half of an entry means in front of it and the lower half behind it, as the line between the rows shows.
int GroupList::DropIndex(const QPoint &pos) const {
  const QListWidgetItem *hit = itemAt(pos);
  if (!hit && count() > 0 && pos.y() > visualItemRect(item(count() - 1)).bottom())
    hit = item(count() - 1);
  const auto [group, from] = Chosen();
  if (!hit || from < 1 || hit->data(GroupRole).toInt() != group)
    return 0;
  const int index = hit->data(IndexRole).toInt();
  const int inFront = index > 0 && pos.y() < visualItemRect(hit).center().y() ? index - 1 : index;
  return inFront < from ? inFront + 1 : inFront;
}

void GroupList::dragEnterEvent(QDragEnterEvent *event) {
  if (event->source() == this || EntryDrag::FromMime(event->mimeData()))
    event->accept();
}

void GroupList::dragMoveEvent(QDragMoveEvent *event) {
  if (EntryDrag::FromMime(event->mimeData())) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    return;
  }
  if (event->source() != this)
    return;
  QListWidget::dragMoveEvent(event);
  if (DropIndex(event->position().toPoint()) > 0)
    event->acceptProposedAction();
  else
    event->ignore();
}

// What is dragged is the chosen entry.
void GroupList::dropEvent(QDropEvent *event) {
  if (const std::optional<EntryDrag> entry = EntryDrag::FromMime(event->mimeData())) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit EntryOffered(*entry);
    return;
  }
  const auto [group, from] = Chosen();
  const int to = DropIndex(event->position().toPoint());
  event->accept();
  setState(NoState);
  if (to > 0 && to != from)
    emit EntryMoved(group, from, to);
}

} // namespace tolmira
