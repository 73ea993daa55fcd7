#include "themes/ui/exibe_miniaturas.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/empty_text.h"
#include "controls/ui/palette.h"
#include "controls/ui/tile_grid.h"
#include "themes/small_copy.h"
#include "themes/small_copy_loader.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyleHints>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QUrl>

namespace tolmira {

namespace {

// A cell: the picture in its border, and the name below.
class CellDelegate : public QStyledItemDelegate {
public:
  explicit CellDelegate(cExibeMiniaturas *grid) : QStyledItemDelegate(grid), m_grid(grid) {}

  static QSize CellSize(int border, const QFontMetrics &font) {
    return SmallCopySize + QSize(2 * border, 2 * border + font.height() + medidas::Step);
  }
  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override {
    return CellSize(m_grid->Borda(), option.fontMetrics);
  }

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QSize size = CellSize(m_grid->Borda(), option.fontMetrics);
    const QRect cell(option.rect.left() + (option.rect.width() - size.width()) / 2, option.rect.top(), size.width(),
                     size.height());
    PaintPlate(*painter, cell, option.state);
    const int border = m_grid->Borda();
    const QRect frame(cell.topLeft() + QPoint(border, border), SmallCopySize);
    PaintPicture(*painter, frame, m_grid->Modelo().Copia(index.row()));
    const QRect line(frame.left(), frame.bottom() + 1 + border / 2, frame.width(), option.fontMetrics.height());
    painter->setPen(QColor(option.state & QStyle::State_Selected ? cores::Text : cores::Quiet));
    painter->drawText(line, Qt::AlignCenter,
                      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, line.width()));
    painter->restore();
  }

private:
  void PaintPlate(QPainter &painter, const QRect &cell, QStyle::State state) const {
    const bool selected = state & QStyle::State_Selected;
    QColor plate = selected ? QColor(cores::Selection) : m_grid->cordefundo();
    if (!selected && (state & QStyle::State_MouseOver))
      plate = QColor(cores::Hover);
    painter.setBrush(plate);
    painter.setPen(selected ? QPen(QColor(cores::Accent), 2) : QPen(Qt::NoPen));
    painter.drawRoundedRect(QRectF(cell).adjusted(1, 1, -1, -1), medidas::Corner, medidas::Corner);
  }

  static void PaintPicture(QPainter &painter, const QRect &frame, const PictureImage *copy) {
    if (!copy) { // on its way
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(cores::Panel));
      painter.drawRoundedRect(frame, medidas::Step, medidas::Step);
      return;
    }
    if (!copy->image.isNull()) {
      // Small copies all have one size; here the picture's own proportions come back.
      const QSize shape = copy->size.isEmpty() ? copy->image.size() : copy->size;
      QRect place(QPoint(), shape.scaled(frame.size(), Qt::KeepAspectRatio).expandedTo({1, 1}));
      place.moveCenter(frame.center());
      painter.drawImage(place, copy->image);
      return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(cores::Line), 1, Qt::DashLine));
    painter.drawRoundedRect(frame.adjusted(4, 4, -4, -4), medidas::Step, medidas::Step);
    const int icon = 2 * medidas::Margin;
    DeskIcon(QLatin1String("warning"), cores::Held)
        .paint(&painter, frame.center().x() - icon / 2, frame.top() + frame.height() / 4, icon, icon);
    painter.setPen(QColor(cores::Quiet));
    painter.drawText(frame.adjusted(12, frame.height() / 2, -12, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     GalleryModel::Motivo(copy->problem));
  }

  cExibeMiniaturas *m_grid;
};

QStringList LocalFiles(const QMimeData *data) {
  QStringList paths;
  for (const QUrl &url : data->urls())
    if (url.isLocalFile())
      paths.append(url.toLocalFile());
  return paths;
}

} // namespace

cExibeMiniaturas::cExibeMiniaturas(const PictureGallery &galeria, SmallCopyLoader &loader, QWidget *parent)
    : QListView(parent), m_galeria(galeria), m_loader(loader), m_modelo(new GalleryModel(this)),
      m_pede(new QTimer(this)), m_corDeFundo(cores::Raised), m_distancia(medidas::Gap), m_borda(medidas::Gap) {
  setModel(m_modelo);
  setItemDelegate(new CellDelegate(this));
  MakeTileGrid(*this);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAcceptDrops(true);
  setDropIndicatorShown(false);

  m_pede->setSingleShot(true);
  m_pede->setInterval(0);
  connect(m_pede, &QTimer::timeout, this, &cExibeMiniaturas::PedeVisiveis);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, m_pede, qOverload<>(&QTimer::start));
  connect(m_modelo, &QAbstractItemModel::modelReset, m_pede, qOverload<>(&QTimer::start));
  connect(m_modelo, &QAbstractItemModel::rowsRemoved, m_pede, qOverload<>(&QTimer::start));
  connect(&loader, &SmallCopyLoader::Pronta, m_modelo, &GalleryModel::Recebe);
  connect(this, &QListView::clicked, this, [this](const QModelIndex &index) { emit Clique(index.row()); });
  connect(this, &QListView::doubleClicked, this, [this](const QModelIndex &index) { emit CliqueDuplo(index.row()); });
}

int cExibeMiniaturas::Colunas() const {
  const int width = CellDelegate::CellSize(m_borda, fontMetrics()).width() + m_distancia;
  return m_colunas > 0 ? m_colunas : qMax(1, (LarguraInteira() - m_distancia) / width);
}

int cExibeMiniaturas::LarguraInteira() const {
  return viewport()->width() + viewportMargins().left();
}

void cExibeMiniaturas::SetColunas(int colunas) {
  m_colunas = qMax(0, colunas);
  AjustaGrade();
}

void cExibeMiniaturas::SetDistancia(int px) {
  m_distancia = qMax(0, px);
  AjustaGrade();
}

void cExibeMiniaturas::SetBorda(int px) {
  m_borda = qMax(0, px);
  AjustaGrade();
}

void cExibeMiniaturas::Setcordefundo(const QColor &cor) {
  m_corDeFundo = cor;
  viewport()->update();
}

void cExibeMiniaturas::AjustaGrade() {
  const QSize cell = CellDelegate::CellSize(m_borda, fontMetrics());
  // As much room beside the pictures as between them; in the list itself it lies right of each. The list breaks a row
  // that would end at the very edge.
  const int columns = Colunas();
  const int beside = qMax(0, (LarguraInteira() - 1 - columns * cell.width()) / (columns + 1));
  setViewportMargins(beside, medidas::Step, 0, 0);
  const QSize grid((viewport()->width() - 1) / columns, cell.height() + m_distancia);
  if (grid != gridSize())
    setGridSize(grid);
  verticalScrollBar()->setSingleStep(qMax(1, grid.height() / 3));
  m_pede->start();
}

int cExibeMiniaturas::IndexSelecionado() const {
  const QModelIndexList rows = selectionModel()->selectedIndexes();
  return rows.isEmpty() ? -1 : rows.first().row();
}

void cExibeMiniaturas::SetIndexSelecionado(int index) {
  const QModelIndex row = m_modelo->index(index, 0);
  if (!row.isValid())
    return;
  setCurrentIndex(row);
  scrollTo(row);
}

QString cExibeMiniaturas::NomeArquivo() const {
  return m_modelo->Nomes().value(IndexSelecionado());
}

QString cExibeMiniaturas::ItemSelecionado() const {
  const QString nome = NomeArquivo();
  return nome.isEmpty() ? QString() : m_galeria.Caminho(nome);
}

int cExibeMiniaturas::GetTotal() const {
  return m_modelo->rowCount();
}

void cExibeMiniaturas::carregaImagens() {
  Carrega(m_galeria.Lista(m_pattern));
}

void cExibeMiniaturas::carregaImagensPorData() {
  QStringList nomes;
  for (const QString &entrada : m_galeria.ListaPorData(m_pattern))
    nomes.append(NomeDaEntrada(entrada));
  Carrega(nomes);
}

void cExibeMiniaturas::Carrega(const QStringList &nomes) {
  const QString selecionado = NomeArquivo();
  m_modelo->SetNomes(nomes);
  SetIndexSelecionado(m_modelo->LinhaDe(selecionado));
  emit Mudou();
}

void cExibeMiniaturas::RemovePics() {
  Carrega({});
}

void cExibeMiniaturas::Retira(int index) {
  m_modelo->Remove(index);
  SetIndexSelecionado(qMin(index, GetTotal() - 1));
  emit Mudou();
}

void cExibeMiniaturas::EsqueceTodas() {
  m_modelo->EsqueceTodas();
}

void cExibeMiniaturas::Esquece(const QString &nome) {
  m_modelo->Esquece(nome);
  m_pede->start();
}

void cExibeMiniaturas::MoveScroll(int linhas) {
  verticalScrollBar()->setValue(verticalScrollBar()->value() + linhas * gridSize().height());
}

int cExibeMiniaturas::LinhasPorPagina() const {
  return qMax(1, viewport()->height() / qMax(1, gridSize().height()));
}

// What is in sight first, then the page that comes next, then the one before: so a page that is turned is there.
void cExibeMiniaturas::PedeVisiveis() {
  if (!isVisible()) {
    m_loader.Deseja({});
    return;
  }
  const int columns = Colunas();
  const int top = verticalScrollBar()->value() / qMax(1, gridSize().height()) * columns;
  const int page = (LinhasPorPagina() + 2) * columns;
  QStringList wanted;
  const auto want = [&](int first, int end) {
    for (int row = qMax(0, first); row < qMin(end, GetTotal()); ++row)
      if (const QString &nome = m_modelo->Nomes()[row]; !m_modelo->Tem(nome))
        wanted.append(nome);
  };
  want(top, top + page);
  want(top + page, top + 2 * page);
  want(top - page, top);
  m_loader.Deseja(wanted);
}

QModelIndex cExibeMiniaturas::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
  const int total = GetTotal();
  if (total == 0)
    return {};
  const int now = currentIndex().isValid() ? currentIndex().row() : -1;
  const int columns = Colunas();
  const int page = LinhasPorPagina() * columns;
  // Up and down keep their column, also where the last row is short.
  const auto vertical = [&](int delta) {
    int row = now + delta;
    while (row >= total)
      row -= columns;
    if (delta > 0 && row <= now)
      return (total - 1) / columns > now / columns ? total - 1 : now;
    while (row < 0)
      row += columns;
    return row;
  };
  int row = now;
  switch (action) {
  case MoveLeft:
  case MovePrevious:
    row = now - 1;
    break;
  case MoveRight:
  case MoveNext:
    row = now + 1;
    break;
  case MoveUp:
    row = vertical(-columns);
    break;
  case MoveDown:
    row = vertical(columns);
    break;
  case MovePageUp:
    row = vertical(-page);
    break;
  case MovePageDown:
    row = vertical(page);
    break;
  case MoveHome:
    row = 0;
    break;
  case MoveEnd:
    row = total - 1;
    break;
  }
  return m_modelo->index(now < 0 && action != MoveEnd ? 0 : qBound(0, row, total - 1), 0);
}

// Not the current picture: the first one is that as soon as the list has the focus, chosen or not.
void cExibeMiniaturas::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
  QListView::selectionChanged(selected, deselected);
  emit Mudou();
}

bool cExibeMiniaturas::Digitando() const {
  return m_digitado.isValid() && m_digitado.elapsed() < QGuiApplication::styleHints()->keyboardInputInterval();
}

void cExibeMiniaturas::keyPressEvent(QKeyEvent *event) {
  const int index = IndexSelecionado();
  switch (event->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit CliqueDuplo(index);
    return;
  case Qt::Key_Delete:
    emit ExcluirPedido(index);
    return;
  case Qt::Key_Space:
    if (!Digitando()) { // a blank inside a name belongs to the name
      emit AmpliarPedido(index);
      return;
    }
    keyboardSearch(event->text());
    m_digitado.start();
    return;
  case Qt::Key_Escape:
    event->ignore();
    return;
  case Qt::Key_Left:
  case Qt::Key_Right:
  case Qt::Key_Up:
  case Qt::Key_Down:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown:
  case Qt::Key_Home:
    // The list takes its first row for the current one as soon as it has the focus; the first key selects it.
    if (index < 0) {
      SetIndexSelecionado(0);
      return;
    }
    break;
  default:
    break;
  }
  const bool letter = !event->text().isEmpty() && event->text().at(0).isPrint() &&
                      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (letter)
    m_digitado.start();
  QListView::keyPressEvent(event);
}

void cExibeMiniaturas::contextMenuEvent(QContextMenuEvent *event) {
  if (event->reason() == QContextMenuEvent::Mouse) {
    emit CliqueDireito(indexAt(event->pos()).row(), event->globalPos());
    return;
  }
  const QModelIndex index = currentIndex();
  emit CliqueDireito(IndexSelecionado(), viewport()->mapToGlobal(index.isValid() ? visualRect(index).center()
                                                                                 : viewport()->rect().center()));
}

void cExibeMiniaturas::resizeEvent(QResizeEvent *event) {
  AjustaGrade();
  QListView::resizeEvent(event);
}

void cExibeMiniaturas::showEvent(QShowEvent *event) {
  QListView::showEvent(event);
  AjustaGrade();
}

void cExibeMiniaturas::hideEvent(QHideEvent *event) {
  QListView::hideEvent(event);
  m_loader.Deseja({});
}

void cExibeMiniaturas::paintEvent(QPaintEvent *event) {
  QListView::paintEvent(event);
  PaintEmptyText(*this, m_textoVazio, 40);
  if (m_soltando) {
    QPainter painter(viewport());
    painter.setPen(QPen(QColor(cores::Accent), 3));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -2, -2));
  }
}

void cExibeMiniaturas::dragEnterEvent(QDragEnterEvent *event) {
  if (LocalFiles(event->mimeData()).isEmpty())
    return;
  // Never moved: the desktop would delete its files.
  event->setDropAction(Qt::CopyAction);
  event->accept();
  m_soltando = true;
  viewport()->update();
}

void cExibeMiniaturas::dragMoveEvent(QDragMoveEvent *event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

void cExibeMiniaturas::dragLeaveEvent(QDragLeaveEvent *) {
  m_soltando = false;
  viewport()->update();
}

void cExibeMiniaturas::dropEvent(QDropEvent *event) {
  const QStringList paths = LocalFiles(event->mimeData());
  m_soltando = false;
  viewport()->update();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  // Behind the drop: a question that stands inside it would hold up the desktop.
  QTimer::singleShot(0, this, [this, paths] { emit Soltos(paths); });
}

} // namespace tolmira
