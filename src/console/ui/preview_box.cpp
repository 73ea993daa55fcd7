#include "console/ui/preview_box.h"

#include <algorithm>

#include "console/monitors.h"
#include "controls/ui/palette.h"
#include "display/ui/picture_layer.h"
#include "display/ui/web_page_host.h"

namespace tolmira {

PreviewBox::PreviewBox(PageProfile perfil, QWidget *parent)
    : QFrame(parent), m_picWV(new WebPageHost(QStringLiteral("preview"), this, std::move(perfil))),
      m_black(new QWidget(this)), m_picture(new PictureLayer(this)) {
  setObjectName(QStringLiteral("PicContainerPreview"));
  setProperty("look", QStringLiteral("screen"));
  setMinimumSize(200, 114);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(tr("Live preview of the projection"));
  setToolTip(tr("What stands on the projection now"));
  m_picWV->setObjectName(QStringLiteral("PicWV"));
  m_picWV->setFocusPolicy(Qt::NoFocus);
  m_black->setObjectName(QStringLiteral("PicTelaPretaPreview"));
  m_black->setAutoFillBackground(true);
  m_black->setStyleSheet(QStringLiteral("background: black;"));
  m_picture->setObjectName(QStringLiteral("ImagePadraoPreview"));
  m_black->hide();
  m_picture->hide();
}

void PreviewBox::DefineMonitor(const QSize &monitor) {
  m_monitor = monitor;
  AjustaPreview();
}

void PreviewBox::AjustaPreview() {
  // Room beyond the projection's proportions would only be an empty margin.
  if (!m_monitor.isEmpty())
    setMaximumHeight(std::max(minimumHeight(), (width() - 2) * m_monitor.height() / m_monitor.width() + 2));
  const QSize before = m_picWV->size();
  m_picWV->setGeometry(tolmira::AjustaPreview(size(), m_monitor));
  FitMirror();
  if (m_picWV->size() != before && OnResize)
    OnResize();
}

void PreviewBox::FitMirror() {
  m_black->setGeometry(m_picWV->geometry());
  m_picture->setGeometry(m_picWV->geometry());
}

void PreviewBox::ShowMirrorBlack(bool visible) {
  m_black->setVisible(visible);
  // Black lies over the page and under the default picture.
  m_black->raise();
  m_picture->raise();
}

bool PreviewBox::LoadMirrorPicture(const QString &storedPath) { return m_picture->Load(storedPath); }

void PreviewBox::ShowMirrorPicture(bool visible) {
  m_picture->setVisible(visible);
  m_picture->raise();
}

void PreviewBox::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  AjustaPreview();
}

} // namespace tolmira
