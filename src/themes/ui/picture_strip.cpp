#include "themes/ui/picture_strip.h"

#include "controls/ui/empty_text.h"
#include "controls/ui/palette.h"
#include "foundation/text_utils.h"

#include <QHash>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace tolmira {

namespace {
constexpr QSize Picture{104, 58};
constexpr QSize Cell{Picture.width() + 18, Picture.height() + 10}; // as much on the right as the style puts on the left
constexpr int Plate = 170; // of 255: as dark as a caption needs over any picture

// Writes the caption over the foot of the picture.
class CaptionDelegate : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const QString caption = index.data(Qt::UserRole).toString();
    if (caption.isEmpty())
      return;
    const int height = option.fontMetrics.height() + 2;
    const QRect cell = QRect(option.rect.topLeft(), Cell).adjusted(9, 5, -9, -5);
    const QRect plate(cell.left(), cell.bottom() + 1 - height, cell.width(), height);
    QColor dark = QColor::fromRgb(cores::Desk);
    dark.setAlpha(Plate);
    painter->fillRect(plate, dark);
    painter->setPen(QColor::fromRgb(cores::Text));
    painter->drawText(plate.adjusted(4, 0, -4, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(caption, Qt::ElideRight, plate.width() - 8));
  }
};
} // namespace

PictureStrip::PictureStrip(Qt::Orientation direcao, QWidget *parent) : QListWidget(parent), m_direcao(direcao) {
  setObjectName(QStringLiteral("PicPics"));
  setProperty("look", QStringLiteral("column"));
  setWrapping(false);
  setUniformItemSizes(true);
  setIconSize(Picture);
  setItemDelegate(new CaptionDelegate(this));
  if (direcao == Qt::Horizontal) {
    setFlow(QListView::LeftToRight);
    setFixedHeight(Cell.height() + 24);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  } else {
    setFlow(QListView::TopToBottom);
    setFixedWidth(Cell.width() + 24);
    setMinimumHeight(2 * Cell.height());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  }
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

void PictureStrip::Grava(QListWidgetItem *cell, const QString &legenda) {
  cell->setData(Qt::UserRole, legenda);
  const QString nome = FileNameOf(cell->toolTip());
  cell->setData(Qt::AccessibleTextRole, legenda.isEmpty() ? nome : QString(legenda + QStringLiteral(", ") + nome));
}

void PictureStrip::MudaLegenda(int posicao, const QString &legenda) {
  if (QListWidgetItem *cell = item(posicao - 1); cell && cell->data(Qt::UserRole).toString() != legenda)
    Grava(cell, legenda);
}

void PictureStrip::Show(const QStringList &nomes, int escolhida, const QStringList &legendas) {
  m_filling = true;
  // Filled anew it would jump to its beginning.
  QScrollBar *bar = m_direcao == Qt::Horizontal ? horizontalScrollBar() : verticalScrollBar();
  const int scrolled = bar->value();
  QHash<QString, QIcon> icons;
  for (int i = 0; i < count(); ++i)
    icons.insert(item(i)->toolTip(), item(i)->icon());
  clear();
  for (const QString &nome : nomes) {
    auto *cell = new QListWidgetItem(icons.value(nome), QString(), this);
    cell->setSizeHint(Cell);
    cell->setToolTip(nome);
    Grava(cell, legendas.value(count() - 1));
  }
  doItemsLayout();
  bar->setValue(scrolled);
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

void PictureStrip::paintEvent(QPaintEvent *event) {
  QListWidget::paintEvent(event);
  PaintEmptyText(*this, m_emptyText, 8);
}

void PictureStrip::keyPressEvent(QKeyEvent *event) {
  const int row = currentRow();
  const bool alt = event->modifiers() == Qt::AltModifier;
  if (row >= 0 && event->key() == Qt::Key_Delete)
    emit Removida(row + 1);
  else if (row > 0 && alt && event->key() == (m_direcao == Qt::Horizontal ? Qt::Key_Left : Qt::Key_Up))
    emit Movida(row + 1, row);
  else if (row >= 0 && row + 1 < count() && alt &&
           event->key() == (m_direcao == Qt::Horizontal ? Qt::Key_Right : Qt::Key_Down))
    emit Movida(row + 1, row + 2);
  else
    QListWidget::keyPressEvent(event);
}

} // namespace tolmira
