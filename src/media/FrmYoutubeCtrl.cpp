#include "media/FrmYoutubeCtrl.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/play_keys.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

namespace tolmira {

namespace {

constexpr QSize FirstSize{420, 140};
constexpr int IntervalMs = 250;

} // namespace

FrmYoutubeCtrl::FrmYoutubeCtrl(const VideoDoors &doors) : QWidget(doors.dono, Qt::Dialog), m_doors(doors) {
  setObjectName(QStringLiteral("FrmYoutubeCtrl"));
  setWindowTitle(tr("Web video"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  const auto label = [this, column](const char *name, const char *look) {
    auto *made = new ElidedLabel(this);
    made->setObjectName(QLatin1String(name));
    made->setProperty("look", QLatin1String(look));
    column->addWidget(made);
    return made;
  };
  m_labelTitulo = label("LabelTitulo", "title");
  m_label1 = label("Label1", "quiet");
  m_label1->setAccessibleName(tr("Time gone by, and in all"));
  m_labelAviso = label("LabelAviso", "quiet");
  m_labelAviso->setAccessibleName(tr("State of the video"));
  column->addStretch(1);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_imagePlay = NewIconButton(QStringLiteral("ImagePlay"), "pause", tr("Pauses the video, or plays it (Space)"), this);
  auto *restart = NewIconButton(QStringLiteral("ImageRestart"), "restart", tr("Goes to the start of the video"), this);
  auto *stop = NewIconButton(QStringLiteral("ImageStop"), "stop", tr("Ends the video and brings the theme back"), this);
  for (QPushButton *button : {m_imagePlay, restart, stop})
    row->addWidget(button);
  row->addStretch(1);
  column->addLayout(row);

  const auto play = [this] {
    m_doors.controleDaWeb.ImagePlay();
    Atualiza();
  };
  connect(m_imagePlay, &QPushButton::clicked, this, play);
  connect(restart, &QPushButton::clicked, this, [this] { m_doors.controleDaWeb.ImageRestart(); });
  connect(stop, &QPushButton::clicked, this, &FrmYoutubeCtrl::ImageStop);
  new PlayKeys(this, play);
  m_timer = m_doors.clock.NewTimer([this] { Atualiza(); });
}

FrmYoutubeCtrl::~FrmYoutubeCtrl() = default;

void FrmYoutubeCtrl::Open(bool comTeclado) {
  if (!isVisible()) {
    m_doors.controleDaWeb.Carrega();
    m_doors.posicoes.RestoreFormPosition(*this, false);
    m_imagePlay->setFocus();
  }
  Atualiza();
  m_timer->Start(IntervalMs);
  setAttribute(Qt::WA_ShowWithoutActivating, !comTeclado);
  show();
  if (!comTeclado)
    return;
  raise();
  activateWindow();
}

void FrmYoutubeCtrl::ImageStop() {
  m_doors.controleDaWeb.ImageStop();
  hide();
  m_doors.encerra();
}

void FrmYoutubeCtrl::Atualiza() {
  const WebVideoControl &web = m_doors.controleDaWeb;
  const auto show = [](ElidedLabel *label, const QString &text) {
    if (label->text() == text)
      return;
    label->setText(text);
    label->setToolTip(text.toHtmlEscaped()); // which takes markup where it finds any
  };
  show(m_labelTitulo, web.Titulo());
  show(m_label1, web.Tempo());
  const QString aviso = web.Aviso();
  if (aviso != m_labelAviso->text())
    SetLook(m_labelAviso, "state",
            aviso.isEmpty() || web.Como() == WebVideoControl::Situacao::Acabou ? QString() : QStringLiteral("held"));
  show(m_labelAviso, aviso);
  if (const bool pausa = web.MostraPausa(); pausa != m_mostraPausa) {
    m_mostraPausa = pausa;
    m_imagePlay->setIcon(DeskIcon(QLatin1String(pausa ? "pause" : "show")));
  }
}

void FrmYoutubeCtrl::closeEvent(QCloseEvent *event) {
  event->accept();
  if (std::exchange(m_closed, true))
    return;
  m_doors.posicoes.SaveFormPosition(*this, false);
  m_timer->Stop();
  m_doors.controleDaWeb.Descarrega();
  emit Closed();
}

} // namespace tolmira
