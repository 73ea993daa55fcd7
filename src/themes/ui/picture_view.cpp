#include "themes/ui/picture_view.h"

#include "controls/ui/palette.h"
#include "themes/ui/gallery_model.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

namespace tolmira {

PictureView::PictureView(QWidget *parent) : QFrame(parent) {
  setProperty("look", QStringLiteral("screen"));
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Preview of the picture"));
  setToolTip(tr("Arrow keys show the other pictures, Enter uses this one, Esc goes back"));
}

// Under the picture there is a line for its name.
QRect PictureView::Area() const {
  return rect().adjusted(medidas::Margin, medidas::Margin, -medidas::Margin, -medidas::Margin - medidas::Heading);
}

QSize PictureView::AreaPx() const {
  return Area().size() * devicePixelRatioF();
}

void PictureView::Espera(const QString &nome) {
  m_nome = nome;
  m_imagem = {};
  setAccessibleDescription(nome);
  update();
}

void PictureView::Mostra(const QString &nome, const PictureImage &imagem) {
  m_nome = nome;
  m_imagem = imagem;
  update();
}

void PictureView::keyPressEvent(QKeyEvent *event) {
  switch (event->key()) {
  case Qt::Key_Escape:
  case Qt::Key_Space:
    emit Fechar();
    break;
  case Qt::Key_Left:
  case Qt::Key_Up:
  case Qt::Key_PageUp:
    emit Vizinha(-1);
    break;
  case Qt::Key_Right:
  case Qt::Key_Down:
  case Qt::Key_PageDown:
    emit Vizinha(1);
    break;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    emit Usar();
    break;
  case Qt::Key_Delete:
    emit Excluir();
    break;
  default:
    QFrame::keyPressEvent(event);
  }
}

void PictureView::mousePressEvent(QMouseEvent *event) {
  if (event->button() == Qt::LeftButton)
    emit Fechar();
}

void PictureView::contextMenuEvent(QContextMenuEvent *event) {
  emit MenuPedido(event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center()));
}

void PictureView::paintEvent(QPaintEvent *event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QRect area = Area();
  painter.setPen(QColor(cores::Quiet));
  QString line = m_nome;
  if (!m_imagem.image.isNull()) {
    QRect place(QPoint(), m_imagem.image.size().scaled(area.size(), Qt::KeepAspectRatio));
    place.moveCenter(area.center());
    painter.drawImage(place, m_imagem.image);
    line += QStringLiteral("   %1 × %2").arg(m_imagem.size.width()).arg(m_imagem.size.height());
  } else if (m_imagem.problem != PictureProblem::None) {
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, GalleryModel::Motivo(m_imagem.problem));
  }
  painter.drawText(QRect(area.left(), area.bottom() + medidas::Step, area.width(), medidas::Heading), Qt::AlignCenter,
                   fontMetrics().elidedText(line, Qt::ElideMiddle, area.width()));
}

} // namespace tolmira
