#include "display/ui/projection_frame.h"

#include "display/ui/web_page_host.h"

#include <QShowEvent>

namespace tolmira {

namespace {
constexpr QSize UsualProjection{1280, 720};
}

ProjectionFrame::ProjectionFrame(const QString &nome, std::function<Display *()> telao, const PageProfile &perfil,
                                 QWidget *parent)
    : QFrame(parent), m_telao(std::move(telao)), m_host(new WebPageHost(nome, this, perfil)) {
  setObjectName(QStringLiteral("PicPreview"));
  setProperty("look", QStringLiteral("screen"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  m_host->setObjectName(QStringLiteral("PicWV"));
  m_host->setFocusPolicy(Qt::NoFocus);
  m_host->OnRecovered = [this] { Recuperada(); };
}

QSize ProjectionFrame::TamanhoDoTelao() const {
  const Display *display = m_telao ? m_telao() : nullptr;
  return display && !display->SizePx().isEmpty() ? display->SizePx() : UsualProjection;
}

void ProjectionFrame::Fit() {
  const QSize projection = TamanhoDoTelao();
  const int inside = width() - 2;
  const int height = inside * projection.height() / projection.width();
  setFixedHeight(height + 2);
  m_host->setGeometry(1, 1, inside, height);
}

void ProjectionFrame::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  Fit();
  Ajustada();
}

void ProjectionFrame::showEvent(QShowEvent *event) {
  QFrame::showEvent(event);
  Fit();
  if (!m_host->WV())
    m_host->CriaBrowser();
  Exibida();
}

} // namespace tolmira
