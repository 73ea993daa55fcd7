#include "songs/ui/list_musicas.h"

#include "controls/ui/empty_text.h"
#include "controls/ui/palette.h"
#include "songs/ui/song_list_model.h"

#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>

namespace tolmira {

ListMusicas::ListMusicas(const AppFolder &app, Clock &clock, QWidget *parent)
    : QListView(parent), m_finder(app, clock), m_model(new SongListModel(this)) {
  setModel(m_model);
  setProperty("look", QStringLiteral("column"));
  setUniformItemSizes(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setDragEnabled(true);
  setDragDropMode(QAbstractItemView::DragOnly);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  m_finder.AoListar = [this] {
    m_model->SetRows(m_finder.List1());
    scrollToTop();
    emit Listed();
    emit RowChanged();
  };
  m_finder.AoBuscar = [this] { emit SearchChanged(); };
}

int ListMusicas::Row() const {
  const QModelIndexList chosen = selectionModel()->selectedRows();
  return chosen.isEmpty() ? -1 : chosen.first().row();
}

void ListMusicas::SelectRow(int row) {
  setCurrentIndex(m_model->index(row));
  scrollTo(currentIndex());
}

QString ListMusicas::Texto() const {
  const int row = Row();
  return row < 0 ? QString() : m_finder.List1().at(static_cast<size_t>(row))->Linha();
}

QString ListMusicas::Caminho() const {
  const int row = Row();
  return row < 0 ? QString() : m_finder.Caminho(row);
}

bool ListMusicas::TemCaminho() const {
  const int row = Row();
  return row >= 0 && m_finder.List1().at(static_cast<size_t>(row))->TemCaminho();
}

void ListMusicas::SetEmptyText(const QString &text) {
  if (m_emptyText == text)
    return;
  m_emptyText = text;
  viewport()->update();
}

void ListMusicas::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
  QListView::selectionChanged(selected, deselected);
  emit RowChanged();
}

// The view takes the first row for its place without showing it, and the first Down would leap over that row.
void ListMusicas::focusInEvent(QFocusEvent *event) {
  const bool chosen = Row() >= 0;
  QListView::focusInEvent(event);
  if (!chosen)
    selectionModel()->clear();
}

void ListMusicas::keyPressEvent(QKeyEvent *event) {
  const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!event->isAutoRepeat())
      emit RowActivated(held == Qt::ControlModifier);
    return;
  case Qt::Key_Escape:
    emit Left();
    return;
  case Qt::Key_Up:
    if (Row() > 0)
      break;
    emit LeftUp();
    return;
  case Qt::Key_Backspace:
    emit Typed(QString());
    return;
  default:
    break;
  }
  const QString text = event->text();
  const bool command = held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (!command && !text.isEmpty() && text.front().isPrint())
    emit Typed(text);
  else
    QListView::keyPressEvent(event);
}

void ListMusicas::mouseDoubleClickEvent(QMouseEvent *event) {
  QListView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
    emit RowActivated(false);
}

void ListMusicas::startDrag(Qt::DropActions) {
  const std::optional<EntryDrag> entry = OnDrag ? OnDrag() : std::nullopt;
  const QModelIndex current = currentIndex();
  if (!entry || !current.isValid())
    return;
  auto *drag = new QDrag(this);
  drag->setMimeData(entry->ToMime());
  drag->setPixmap(viewport()->grab(visualRect(current)));
  drag->exec(Qt::CopyAction);
}

void ListMusicas::paintEvent(QPaintEvent *event) {
  QListView::paintEvent(event);
  PaintEmptyText(*this, m_emptyText, 16);
}

} // namespace tolmira
