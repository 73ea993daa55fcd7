#include "media/FrmCameras.h"

#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tolmira {

namespace {

constexpr int FirstWidth = 520; // px
constexpr int MostRowsInSight = 6;
constexpr int EsperaPelaResposta = 5000; // ms

QString Estado(Cameras::Situacao situacao) {
  switch (situacao) {
  case Cameras::Situacao::Desligada:
    break;
  case Cameras::Situacao::Abrindo:
    return FrmCameras::tr("Opening…");
  case Cameras::Situacao::NoTelao:
    return FrmCameras::tr("On the screen");
  case Cameras::Situacao::Falhou:
    return FrmCameras::tr("Cannot be opened");
  case Cameras::Situacao::Saiu:
    return FrmCameras::tr("Unplugged");
  }
  return {};
}

QString CorDoEstado(Cameras::Situacao situacao) {
  if (situacao == Cameras::Situacao::NoTelao)
    return QStringLiteral("live");
  const bool ruim = situacao == Cameras::Situacao::Falhou || situacao == Cameras::Situacao::Saiu;
  return ruim ? QStringLiteral("held") : QString();
}

} // namespace

FrmCameras::FrmCameras(const CameraDoors &doors) : QWidget(doors.dono, Qt::Dialog), m_doors(doors) {
  setObjectName(QStringLiteral("FrmCameras"));
  setWindowTitle(tr("Cameras"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  m_aviso = new QLabel(this);
  m_aviso->setObjectName(QStringLiteral("LabelAviso"));
  m_aviso->setProperty("look", QStringLiteral("quiet"));
  m_aviso->setWordWrap(true);
  m_aviso->setMinimumHeight(2 *
                            m_aviso->fontMetrics().lineSpacing()); // the longest text, in a window of the least width
  m_aviso->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  m_aviso->setAccessibleName(tr("About the cameras"));
  column->addWidget(m_aviso);

  m_picture1 = new QWidget;
  m_picture1->setObjectName(QStringLiteral("Picture1"));
  m_column = new QVBoxLayout(m_picture1);
  m_column->setContentsMargins(0, 0, 0, 0);
  m_column->setSpacing(medidas::Gap);
  m_column->addStretch(1);
  m_area = new QScrollArea(this);
  m_area->setFrameShape(QFrame::NoFrame);
  m_area->setWidgetResizable(true);
  m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_area->setFocusPolicy(Qt::NoFocus);
  m_area->setWidget(m_picture1);
  column->addWidget(m_area);
  column->addStretch(1);

  auto *bottom = new QHBoxLayout;
  m_procura = new QPushButton(tr("&Look again"), this);
  m_procura->setObjectName(QStringLiteral("CommandProcura"));
  m_procura->setToolTip(tr("Looks for cameras that were plugged in since"));
  m_procura->setAutoDefault(false);
  connect(m_procura, &QPushButton::clicked, this, &FrmCameras::Procura);
  bottom->addStretch(1);
  bottom->addWidget(m_procura);
  column->addLayout(bottom);

  m_espera = m_doors.clock.NewTimer([this] {
    m_espera->Stop();
    m_procurando = false;
    m_semResposta = true;
    Atualiza();
  });
  m_doors.cameras.AoListar = [this](const QStringList &nomes) { Lista(nomes); };
  m_doors.cameras.AoMudar = [this] { Atualiza(); };
  setMinimumWidth(FirstWidth);
  resize(FirstWidth, sizeHint().height());
}

FrmCameras::~FrmCameras() {
  if (!m_closed)
    Cala();
}

void FrmCameras::Cala() {
  m_doors.cameras.AoListar = nullptr;
  m_doors.cameras.AoMudar = nullptr;
}

void FrmCameras::Open() {
  if (!isVisible()) {
    m_doors.posicoes.RestoreFormPosition(*this, false);
    m_procurando = true;
    m_espera->Start(EsperaPelaResposta);
    m_doors.cameras.Abre();
  }
  Atualiza();
  Cresce();
  show();
  raise();
  activateWindow();
}

void FrmCameras::Procura() {
  m_procurando = true;
  m_semResposta = false;
  m_espera->Start(EsperaPelaResposta);
  m_doors.cameras.Procura();
  Atualiza();
}

void FrmCameras::Lista(const QStringList &nomes) {
  m_espera->Stop();
  m_procurando = m_semResposta = false;
  const bool focused = isAncestorOf(focusWidget()) && focusWidget() != m_procura;
  for (const Row &row : std::exchange(m_rows, {}))
    delete row.place;
  for (const QString &nome : nomes)
    NovaCamera(nome);
  Atualiza();
  Cresce();
  if (!m_rows.empty() && (focused || !focusWidget() || focusWidget() == m_procura))
    m_rows.front().command1->setFocus();
}

void FrmCameras::NovaCamera(const QString &nome) {
  const int index = static_cast<int>(m_rows.size());
  Row row;
  row.place = new QWidget(m_picture1);
  auto *line = new QHBoxLayout(row.place);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(medidas::Gap);
  row.label2 = new ElidedLabel(row.place);
  row.label2->setObjectName(QStringLiteral("Label2%1").arg(index));
  row.label2->setTextFormat(Qt::PlainText);
  row.label2->setText(nome);
  row.label2->setToolTip(nome);
  line->addWidget(row.label2, 1);
  row.state = new QLabel(row.place);
  row.state->setObjectName(QStringLiteral("LabelEstado%1").arg(index));
  row.state->setAccessibleName(tr("State of %1").arg(nome));
  line->addWidget(row.state);
  const auto button = [&](const QString &name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, row.place);
    made->setObjectName(name + QString::number(index));
    made->setToolTip(tip);
    made->setAccessibleName(text + u' ' + nome);
    made->setAutoDefault(false);
    line->addWidget(made);
    return made;
  };
  row.command1 = button(QStringLiteral("Command1"), tr("Show"), tr("Puts this camera behind the text"));
  row.command2 = button(QStringLiteral("Command2"), tr("Stop"), tr("Brings the theme's picture back"));
  connect(row.command1, &QPushButton::clicked, this, [this, index] { m_doors.cameras.Liga(index); });
  connect(row.command2, &QPushButton::clicked, this, [this, index] {
    m_rows[static_cast<size_t>(index)].command1->setFocus(); // this one is about to have nothing to stop
    m_doors.cameras.Desliga(index);
  });
  m_column->insertWidget(index, row.place);
  m_rows.push_back(row);
}

// The window is as high as its cameras, up to a number of them.
void FrmCameras::Cresce() {
  const int rows = std::min(static_cast<int>(m_rows.size()), MostRowsInSight);
  const int row = m_procura->sizeHint().height(); // as high as the buttons of the rows, which may have no style yet
  m_area->setFixedHeight(rows * row + std::max(rows - 1, 0) * medidas::Gap);
  layout()->activate();
  resize(width(), std::max(layout()->heightForWidth(width()), minimumSizeHint().height()));
}

void FrmCameras::Atualiza() {
  const Cameras &cameras = m_doors.cameras;
  if (!cameras.Pode())
    m_aviso->setText(tr("A camera needs a page with a theme: show a song or a passage first."));
  else if (m_procurando)
    m_aviso->setText(tr("Looking for cameras…"));
  else if (m_semResposta)
    m_aviso->setText(tr("The page on show does not answer."));
  else if (m_rows.empty())
    m_aviso->setText(tr("No camera was found. Plug one in and look again."));
  else
    m_aviso->setText(
        tr("A camera stands behind the text, in the place of the theme's picture. Closing this window takes "
           "it off the screen."));
  m_procura->setEnabled(cameras.Pode() && !m_procurando);
  for (size_t i = 0; i < m_rows.size(); ++i) {
    const Row &row = m_rows[i];
    const bool on = cameras.Ligada() == static_cast<int>(i);
    const Cameras::Situacao situacao = on ? cameras.Como() : Cameras::Situacao::Desligada;
    row.state->setText(Estado(situacao));
    SetLook(row.state, "state", CorDoEstado(situacao));
    row.command1->setEnabled(cameras.Pode());
    row.command2->setEnabled(on);
  }
}

void FrmCameras::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && m_doors.cameras.Ligada() < 0)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmCameras::closeEvent(QCloseEvent *event) {
  event->accept();
  if (std::exchange(m_closed, true))
    return;
  m_doors.posicoes.SaveFormPosition(*this, false);
  Cala();
  m_doors.cameras.Fecha();
  m_espera->Stop();
  emit Closed();
}

} // namespace tolmira
