#include "themes/ui/picture_strip.h"

#include <QHash>
#include <QKeyEvent>
#include <QPixmap>
#include <QSignalBlocker>

namespace tolmira {

namespace {
constexpr QSize Picture{104, 58};
constexpr QSize Cell{Picture.width() + 18, Picture.height() + 10}; // as much on the right as the style puts on the left
} // namespace

PictureStrip::PictureStrip(QWidget *parent) : QListWidget(parent) {
  setObjectName(QStringLiteral("PicPics"));
  setProperty("look", QStringLiteral("column"));
  setFlow(QListView::LeftToRight);
  setWrapping(false);
  setUniformItemSizes(true);
  setIconSize(Picture);
  setFixedHeight(Cell.height() + 24);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setDragDropMode(QAbstractItemView::InternalMove);
  setAccessibleName(tr("Pictures of the theme"));
  setToolTip(
      tr("A click shows the picture above. Drag, or Alt with Left and Right, changes the order; Delete takes one\n"
         "out of the theme, its file stays."));
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!m_filling && row >= 0)
      emit Escolhida(row + 1);
  });
  // Told when the list has done with the drop, since the answer fills it anew.
  connect(
      model(), &QAbstractItemModel::rowsMoved, this,
      [this](const QModelIndex &, int from, int, const QModelIndex &, int before) {
        if (!m_filling)
          emit Movida(from + 1, before > from ? before : before + 1);
      },
      Qt::QueuedConnection);
}

void PictureStrip::Show(const QStringList &nomes, int escolhida) {
  m_filling = true;
  QHash<QString, QIcon> icons;
  for (int i = 0; i < count(); ++i)
    icons.insert(item(i)->toolTip(), item(i)->icon());
  clear();
  for (const QString &nome : nomes) {
    auto *cell = new QListWidgetItem(icons.value(nome), QString(), this);
    cell->setSizeHint(Cell);
    cell->setToolTip(nome);
    cell->setData(Qt::AccessibleTextRole, nome);
  }
  Escolhe(escolhida);
}

void PictureStrip::Escolhe(int posicao) {
  m_filling = true;
  setCurrentRow(posicao - 1);
  m_filling = false;
}

void PictureStrip::SetPicture(const QString &nome, const QImage &imagem) {
  if (imagem.isNull())
    return;
  const QPixmap picture = QPixmap::fromImage(imagem.scaled(Picture, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  QIcon icon(picture);
  icon.addPixmap(picture, QIcon::Selected); // the chosen one keeps its colours
  for (int i = 0; i < count(); ++i)
    if (item(i)->toolTip() == nome)
      item(i)->setIcon(icon);
}

void PictureStrip::keyPressEvent(QKeyEvent *event) {
  const int row = currentRow();
  const bool alt = event->modifiers() == Qt::AltModifier;
  if (row >= 0 && event->key() == Qt::Key_Delete)
    emit Removida(row + 1);
  else if (row > 0 && alt && event->key() == Qt::Key_Left)
    emit Movida(row + 1, row);
  else if (row >= 0 && row + 1 < count() && alt && event->key() == Qt::Key_Right)
    emit Movida(row + 1, row + 2);
  else
    QListWidget::keyPressEvent(event);
}

} // namespace tolmira
