#include "notices/ui/notice_preview.h"

#include <QLabel>
#include <algorithm>

namespace tolmira {

namespace {

constexpr QSize ScreenSize{480, 270};
constexpr int FrameMs = 33;
constexpr double TextOfBand = 0.6; // as on the page
constexpr int LeastTextPx = 5;

QColor FromStore(qint32 colour) {
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

} // namespace

NoticePreview::NoticePreview(QWidget *parent)
    : QFrame(parent), m_band(new QWidget(this)), m_lbAvisoMini(new QLabel(m_band)) {
  setObjectName(QStringLiteral("PicAvisoMini"));
  setProperty("look", QStringLiteral("screen"));
  setFixedSize(ScreenSize);
  m_band->setAutoFillBackground(true);
  m_lbAvisoMini->setObjectName(QStringLiteral("LbAvisoMini"));
  m_lbAvisoMini->setText(tr("This is how a notice looks"));
  m_frame.setInterval(FrameMs);
  connect(&m_frame, &QTimer::timeout, this, [this] { Anda(); });
  m_left = ScreenSize.width() / 4.0;
}

void NoticePreview::Mostra(const VisualDoAviso &visual, bool noAlto) {
  m_visual = visual;
  m_noAlto = noAlto;
  Arranja();
}

void NoticePreview::Arranja() {
  const QRect screen = contentsRect();
  const int height = std::max(1, screen.height() * m_visual.PorcentoAviso / 100);
  m_band->setGeometry(screen.left(), m_noAlto ? screen.top() : screen.bottom() + 1 - height, screen.width(), height);
  QPalette band = m_band->palette();
  band.setColor(QPalette::Window, FromStore(m_visual.FundoAvisoColor));
  m_band->setPalette(band);
  // The program's style sheet has a say in the colour and size of every label; only a sheet of its own goes before it.
  m_lbAvisoMini->setStyleSheet(QStringLiteral("color: %1; font-weight: bold; font-size: %2px; background: transparent;")
                                   .arg(FromStore(m_visual.LetraAvisoColor).name())
                                   .arg(std::max(LeastTextPx, static_cast<int>(height * TextOfBand))));
  m_lbAvisoMini->resize(m_lbAvisoMini->sizeHint().width(), height);
  m_lbAvisoMini->move(static_cast<int>(m_left), 0);
}

void NoticePreview::Anda() {
  const qint64 gone = m_since.isValid() ? m_since.restart() : (m_since.start(), 0);
  m_left -= m_band->width() * 0.01 * (m_visual.VelocAviso + 1) * static_cast<double>(gone) / 1000;
  if (m_left < -m_lbAvisoMini->width())
    m_left = m_band->width();
  m_lbAvisoMini->move(static_cast<int>(m_left), 0);
}

void NoticePreview::resizeEvent(QResizeEvent *) {
  Arranja();
}
void NoticePreview::showEvent(QShowEvent *) {
  m_frame.start();
}
void NoticePreview::hideEvent(QHideEvent *) {
  m_frame.stop();
  m_since.invalidate();
}

} // namespace tolmira
