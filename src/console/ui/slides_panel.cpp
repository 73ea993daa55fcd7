#include "console/ui/slides_panel.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"
#include "controls/ui/tile_grid.h"
#include "themes/small_copy.h"
#include "themes/small_copy_loader.h"

#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

namespace tolmira {

namespace {

constexpr int LeastTileWidth = 160; // px
constexpr int Padding = 6;
constexpr int MemoryKiB = 16 * 1024; // some 210 small copies

int PictureHeight(int tileWidth) { return (tileWidth - 2 * Padding) * 9 / 16; }

int TileHeight(int tileWidth, const QFontMetrics &font) {
  return PictureHeight(tileWidth) + 2 * font.height() + 2 * Padding + medidas::Step;
}

// What the projection does with the slide that is out.
QRgb StateColour(const EstadoConsole &estado) {
  if (estado.EstadoTela == u"TelaPreta" || estado.EstadoTela == u"Hide")
    return cores::Off;
  return estado.EstadoTela == u"Normal" ? cores::Live : cores::Held;
}

class TileDelegate : public QStyledItemDelegate {
public:
  TileDelegate(const SlideListModel &modelo, const EstadoConsole &estado, const PainelConsole &painel, QListView *parent)
      : QStyledItemDelegate(parent), m_modelo(modelo), m_estado(estado), m_painel(painel) {}

  QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override {
    return static_cast<const QListView *>(parent())->gridSize();
  }

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override {
    const int slide = index.row() + 1;
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRect tile = option.rect.adjusted(0, 0, -medidas::Gap, -medidas::Gap);
    PaintPlate(*painter, tile, slide, option.state & QStyle::State_MouseOver);
    const QRect picture(tile.left() + Padding, tile.top() + Padding, tile.width() - 2 * Padding,
                        PictureHeight(tile.width()));
    PaintPicture(*painter, picture, index.row());
    PaintNumber(*painter, picture, slide, option.fontMetrics);

    const Slide &shown = m_modelo.SlideDe(index.row());
    QRect line(picture.left(), picture.bottom() + medidas::Step, picture.width(), option.fontMetrics.height());
    const auto write = [&](const QString &text, QRgb colour) {
      painter->setPen(QColor(colour));
      painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                        option.fontMetrics.elidedText(text.simplified(), Qt::ElideRight, line.width()));
      line.translate(0, line.height());
    };
    write(shown.Titulo, cores::Text);
    write(shown.Texto, cores::Quiet);
    painter->restore();
  }

private:
  void PaintPlate(QPainter &painter, const QRect &tile, int slide, bool hovered) const {
    const bool chosen = slide == m_painel.SlideEscolhido;
    const bool out = slide == m_estado.SlideAtual;
    painter.setBrush(QColor(chosen ? cores::Selection : hovered ? cores::Hover : cores::Raised));
    painter.setPen(out      ? QPen(QColor(StateColour(m_estado)), 2)
                   : chosen ? QPen(QColor(cores::Accent), 2)
                            : QPen(Qt::NoPen));
    painter.drawRoundedRect(QRectF(tile).adjusted(1, 1, -1, -1), medidas::Corner, medidas::Corner);
  }

  void PaintPicture(QPainter &painter, const QRect &place, int row) const {
    QPainterPath frame;
    frame.addRoundedRect(place, medidas::Step, medidas::Step);
    painter.fillPath(frame, Qt::black);
    const PictureImage *copy = m_modelo.Copia(row);
    if (!copy)
      return;
    if (copy->image.isNull()) {
      const int icon = 2 * medidas::Margin;
      DeskIcon(QLatin1String("warning"), cores::Held)
          .paint(&painter, place.center().x() - icon / 2, place.center().y() - icon / 2, icon, icon);
      return;
    }
    // Cut as the page cuts it. Small copies all have one size; here the picture's own proportions come back.
    const QSize shape = copy->size.isEmpty() ? copy->image.size() : copy->size;
    QRect whole(QPoint(), shape.scaled(place.size(), Qt::KeepAspectRatioByExpanding));
    whole.moveCenter(place.center());
    painter.save();
    painter.setClipPath(frame, Qt::IntersectClip);
    painter.drawImage(whole, copy->image);
    painter.restore();
  }

  void PaintNumber(QPainter &painter, const QRect &picture, int slide, const QFontMetrics &font) const {
    const QString number = QString::number(slide);
    const QRect badge(picture.left() + medidas::Step, picture.top() + medidas::Step,
                      font.horizontalAdvance(number) + 2 * medidas::Step, font.height());
    QColor back(cores::Desk);
    back.setAlpha(210);
    painter.setPen(Qt::NoPen);
    painter.setBrush(back);
    painter.drawRoundedRect(badge, medidas::Step, medidas::Step);
    painter.setPen(QColor(slide == m_estado.SlideAtual ? StateColour(m_estado) : cores::Text));
    painter.drawText(badge, Qt::AlignCenter, number);
  }

  const SlideListModel &m_modelo;
  const EstadoConsole &m_estado;
  const PainelConsole &m_painel;
};

} // namespace

SlideListModel::SlideListModel(QObject *parent) : QAbstractListModel(parent), m_copias(MemoryKiB) {}

void SlideListModel::SetDocumento(const SlideDocument &documento) {
  beginResetModel();
  m_slides = documento.slides;
  m_copias.clear(); // a picture may have been replaced since
  endResetModel();
}

void SlideListModel::Recebe(const QString &caminho, const PictureImage &imagem) {
  m_copias.insert(caminho, new PictureImage(imagem), static_cast<int>(imagem.image.sizeInBytes() / 1024) + 1);
  for (int linha = 0; linha < m_slides.size(); ++linha)
    if (m_slides[linha].Imagem == caminho)
      emit dataChanged(index(linha), index(linha));
}

int SlideListModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_slides.size());
}

QVariant SlideListModel::data(const QModelIndex &index, int role) const {
  if (!index.isValid() || index.row() >= m_slides.size())
    return {};
  const Slide &slide = m_slides[index.row()];
  if (role == Qt::DisplayRole)
    return slide.Titulo;
  if (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole)
    return {};
  QStringList lines{tr("Slide %1").arg(index.row() + 1)};
  for (const QString &text : {slide.Titulo, slide.Texto})
    if (!text.trimmed().isEmpty())
      lines << text.trimmed();
  if (const PictureImage *copy = Copia(index.row()); copy && copy->image.isNull())
    lines << tr("Its picture cannot be shown: %1").arg(slide.Imagem);
  return role == Qt::ToolTipRole ? lines.join(u'\n') : lines.join(QStringLiteral(". ")).simplified();
}

SlidesPanel::SlidesPanel(ConsoleParts parts, QWidget *parent)
    : QListView(parent), m_parts(parts), m_modelo(new SlideListModel(this)),
      m_loader(new SmallCopyLoader(parts.console.app, this)), m_pede(new QTimer(this)) {
  setObjectName(QStringLiteral("ControlSlides1"));
  setAccessibleName(tr("Slides"));
  setModel(m_modelo);
  setItemDelegate(new TileDelegate(*m_modelo, parts.console.estado, parts.console.painel, this));
  setFocusPolicy(Qt::NoFocus); // the keys are the area's that it lies in
  setFrameShape(QFrame::NoFrame);
  MakeTileGrid(*this);
  setSelectionMode(NoSelection);

  m_pede->setSingleShot(true);
  m_pede->setInterval(0);
  connect(m_pede, &QTimer::timeout, this, &SlidesPanel::PedeVisiveis);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, m_pede, qOverload<>(&QTimer::start));
  connect(m_loader, &SmallCopyLoader::Pronta, m_modelo, &SlideListModel::Recebe);
  connect(this, &QListView::clicked, this, [this](const QModelIndex &index) {
    if (m_parts.console.view)
      m_parts.console.view->FocusStrip();
    m_parts.slides.Escolhe(index.row() + 1);
  });
}

void SlidesPanel::Atualiza() {
  const bool shown = m_parts.slides.Visible();
  const SlideDocument &documento = m_parts.slides.Documento();
  // Another document, or the same one after it was saved.
  const bool another = shown && (m_caminho != m_parts.slides.Caminho() || m_leitura != m_parts.slides.Leitura());
  if (another) {
    m_caminho = m_parts.slides.Caminho();
    m_leitura = m_parts.slides.Leitura();
    m_escolhido = 0;
    m_modelo->SetDocumento(documento);
  } else if (!shown && !m_caminho.isEmpty()) {
    m_caminho.clear();
    m_loader->Deseja({});
    m_modelo->SetDocumento({});
  }
  setVisible(shown);
  if (!shown)
    return;
  if (another) {
    AjustaGrade();
    m_pede->start();
  }
  MostraEscolhido();
  viewport()->update();
}

// The next slide is in sight too, so that the operator sees what comes.
void SlidesPanel::MostraEscolhido() {
  const int chosen = m_parts.console.painel.SlideEscolhido;
  if (chosen == m_escolhido || chosen < 1)
    return;
  m_escolhido = chosen;
  for (const int row : {chosen, chosen - 1})
    if (const QModelIndex index = m_modelo->index(row); index.isValid())
      scrollTo(index, EnsureVisible);
  setCurrentIndex(m_modelo->index(chosen - 1));
}

// The tiles share the whole width between them.
void SlidesPanel::AjustaGrade() {
  const int width = viewport()->width() - 1;
  const int column = width / qMax(1, width / (LeastTileWidth + medidas::Gap));
  setGridSize({column, TileHeight(column - medidas::Gap, fontMetrics()) + medidas::Gap});
}

void SlidesPanel::resizeEvent(QResizeEvent *event) {
  AjustaGrade();
  QListView::resizeEvent(event);
  if (currentIndex().isValid()) // the slide on show stays in sight
    scrollTo(currentIndex(), EnsureVisible);
  m_pede->start();
}

// What is in sight, then the page below it and the one above.
void SlidesPanel::PedeVisiveis() {
  if (!isVisible())
    return;
  const QSize grade = gridSize();
  const int columns = qMax(1, viewport()->width() / grade.width());
  const int rows = viewport()->height() / grade.height() + 2;
  const int first = verticalScrollBar()->value() / grade.height() * columns;
  const int page = rows * columns;
  QStringList wanted;
  const auto want = [&](int from, int to) {
    for (int row = qMax(0, from); row < qMin(to, m_modelo->rowCount()); ++row)
      if (const QString &picture = m_modelo->SlideDe(row).Imagem;
          !picture.isEmpty() && !m_modelo->Copia(row) && !wanted.contains(picture))
        wanted.append(picture);
  };
  want(first, first + page);
  want(first + page, first + 2 * page);
  want(first - page, first);
  m_loader->Deseja(wanted);
}

} // namespace tolmira
