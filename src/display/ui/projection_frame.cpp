#include "display/ui/projection_frame.h"

#include "display/ui/web_page_host.h"

#include <QShowEvent>
#include <algorithm>

namespace tolmira {

namespace {
constexpr QSize UsualProjection{1280, 720};
}

ProjectionFrame::ProjectionFrame(const QString &nome, Altura altura, std::function<Display *()> telao,
                                 const PageProfile &perfil, QWidget *parent)
    : QFrame(parent), m_altura(altura), m_telao(std::move(telao)), m_host(new WebPageHost(nome, this, perfil)) {
  setObjectName(QStringLiteral("PicPreview"));
  setProperty("look", QStringLiteral("screen"));
  setSizePolicy(QSizePolicy::Expanding, altura == Altura::PelaLargura ? QSizePolicy::Fixed : QSizePolicy::Expanding);
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
  const int wanted = (width() - 2) * projection.height() / projection.width() + 2;
  if (m_altura == Altura::PelaLargura)
    setFixedHeight(wanted);
  else
    setMaximumHeight(std::max(minimumHeight(), wanted));
  const QRect inside = rect().adjusted(1, 1, -1, -1);
  QRect page(QPoint(), projection.scaled(inside.size(), Qt::KeepAspectRatio));
  page.moveCenter(inside.center());
  m_host->setGeometry(page);
  Ajustada();
}

void ProjectionFrame::resizeEvent(QResizeEvent *event) {
  QFrame::resizeEvent(event);
  Fit();
}

void ProjectionFrame::showEvent(QShowEvent *event) {
  QFrame::showEvent(event);
  if (!m_host->WV())
    m_host->CriaBrowser();
  Fit();
  Exibida();
}

} // namespace tolmira
