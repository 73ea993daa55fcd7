#include "media/FrmVideoControl.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/play_keys.h"
#include "controls/ui/volume_box.h"
#include "media/ui/position_bar.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace tolmira {

namespace {

constexpr QSize FirstSize{480, 190};
constexpr int ProgressMs = 250;

} // namespace

FrmVideoControl::FrmVideoControl(const VideoDoors &doors) : QWidget(doors.dono, Qt::Dialog), m_doors(doors) {
  setObjectName(QStringLiteral("FrmVideoControl"));
  setWindowTitle(tr("Video"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_labelTitulo = new ElidedLabel(this);
  m_labelTitulo->setObjectName(QStringLiteral("LabelTitulo"));
  m_labelTitulo->setProperty("look", QStringLiteral("title"));
  column->addWidget(m_labelTitulo);
  MakeTrack(column);
  m_labelAviso = new ElidedLabel(this);
  m_labelAviso->setObjectName(QStringLiteral("LabelAviso"));
  m_labelAviso->setProperty("look", QStringLiteral("quiet"));
  m_labelAviso->setAccessibleName(tr("State of the video"));
  column->addWidget(m_labelAviso);
  column->addStretch(1);
  MakeButtons(column);
  MakeSound(column);

  new PlayKeys(this, [this] { Image3(VideoControl::TocaOuPara); });
  m_timerProgress = m_doors.clock.NewTimer([this] { TickProgress(); });
}

FrmVideoControl::~FrmVideoControl() = default;

void FrmVideoControl::MakeTrack(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto time = [this](const char *name, const QString &spoken, Qt::Alignment side) {
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setAccessibleName(spoken);
    label->setAlignment(side | Qt::AlignVCenter);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("0:00:00")));
    return label;
  };
  m_label1 = time("Label1", tr("Time gone by"), Qt::AlignRight);
  m_label2 = time("Label2", tr("Time in all"), Qt::AlignLeft);
  m_picS2 = new PositionBar(this);
  m_picS2->setObjectName(QStringLiteral("PicS2"));
  m_picS2->setAccessibleName(tr("Position in the video"));
  m_picS2->setToolTip(tr("Click to go there; Left and Right go by 5 seconds, PageUp and PageDown by 30"));
  row->addWidget(m_label1);
  row->addWidget(m_picS2, 1);
  row->addWidget(m_label2);
  column->addLayout(row);
  connect(m_picS2, &PositionBar::Escolhido, this, [this](double percentual) {
    m_doors.controle.VaiPara(percentual);
    TickProgress();
  });
  connect(m_picS2, &PositionBar::AoFim, this, [this] {
    m_doors.controle.VaiAoFim();
    TickProgress();
  });
  connect(m_picS2, &PositionBar::Passo, this, [this](int seconds) {
    m_doors.controle.Anda(seconds);
    TickProgress();
  });
}

void FrmVideoControl::MakeButtons(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  struct Face {
    const char *drawing;
    QString spoken;
  };
  const Face faces[] = {{"restart", tr("Plays the video from its start")},
                        {"pause", tr("Pauses the video, or plays it (Space)")},
                        {"to-start", tr("Back to the start, and waits there")}};
  for (int i = 0; i < 3; ++i) {
    const Face &face = faces[i];
    auto *button = NewIconButton(QStringLiteral("Image3%1").arg(i), face.drawing, face.spoken, this);
    connect(button, &QPushButton::clicked, this, [this, i] { Image3(static_cast<VideoControl::Botao>(i)); });
    m_image3[static_cast<size_t>(i)] = button;
    row->addWidget(button);
  }
  m_imageStop =
      NewIconButton(QStringLiteral("ImageStop"), "stop", tr("Ends the video and brings the theme back"), this);
  connect(m_imageStop, &QPushButton::clicked, this, [this] { m_doors.encerra(); });
  row->addWidget(m_imageStop);
  row->addSpacing(medidas::Margin);
  m_checkLoop = new QCheckBox(tr("&Loop"), this);
  m_checkLoop->setObjectName(QStringLiteral("CheckLoop"));
  m_checkLoop->setToolTip(tr("Begins again at its end; a press on play turns this on"));
  connect(m_checkLoop, &QCheckBox::toggled, this, [this](bool on) { m_doors.controle.DefineLoop(on); });
  row->addWidget(m_checkLoop);
  row->addStretch(1);
  column->addLayout(row);
}

void FrmVideoControl::MakeSound(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_volume = new VolumeBox(tr("Volume of the video"), this);
  row->addWidget(m_volume, 1);
  row->addSpacing(medidas::Margin);
  m_labelAudio = new QLabel(tr("&Sound:"), this);
  m_comboAudio = new QComboBox(this);
  m_comboAudio->setObjectName(QStringLiteral("ComboAudio"));
  m_comboAudio->setAccessibleName(tr("Sound of the video"));
  m_comboAudio->setToolTip(tr("Which of the file's sounds is heard"));
  m_comboAudio->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_comboAudio->setMinimumContentsLength(8);
  m_labelAudio->setBuddy(m_comboAudio);
  for (QWidget *part : {static_cast<QWidget *>(m_labelAudio), static_cast<QWidget *>(m_comboAudio)}) {
    row->addWidget(part);
    part->hide();
  }
  column->addLayout(row);
  connect(m_volume, &VolumeBox::Changed, this, [this](int volume) { m_doors.controle.DefineVolume(volume); });
  connect(m_comboAudio, &QComboBox::activated, this, [this](int row_) {
    if (row_ >= 0 && row_ < m_faixas.size())
      m_doors.controle.DefineFaixa(m_faixas[row_].id);
  });
}

void FrmVideoControl::Open(bool comTeclado) {
  m_doors.controle.Carrega();
  m_volume->Mostra(m_doors.controle.Volume());
  TickProgress();
  m_timerProgress->Start(ProgressMs);
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  setAttribute(Qt::WA_ShowWithoutActivating, !comTeclado);
  m_image3[VideoControl::TocaOuPara]->setFocus();
  show();
  if (!comTeclado)
    return;
  raise();
  activateWindow();
}

void FrmVideoControl::Image3(VideoControl::Botao botao) {
  m_doors.controle.Image3(botao);
  TickProgress();
}

void FrmVideoControl::TickProgress() {
  const VideoControl::Progresso visto = m_doors.controle.Olha();
  m_labelTitulo->setText(visto.Titulo);
  m_labelTitulo->setToolTip(visto.Titulo);
  m_label1->setText(visto.Label1);
  m_label2->setText(visto.Label2);
  m_picS2->SetTemMidia(!visto.Label2.isEmpty());
  m_picS2->AtualizaBarra(visto.percentual);
  if (const bool pausa = m_doors.controle.MostraPausa(); pausa != m_mostraPausa || m_image3[1]->icon().isNull()) {
    m_mostraPausa = pausa;
    m_image3[1]->setIcon(DeskIcon(QLatin1String(pausa ? "pause" : "show")));
  }
  const QSignalBlocker quiet(m_checkLoop);
  m_checkLoop->setChecked(m_doors.controle.Loop());
  MostraFaixas();
  MostraAviso(visto);
}

void FrmVideoControl::MostraAviso(const VideoControl::Progresso &visto) {
  const QString aviso = visto.falhou           ? tr("This file cannot be played.")
                        : visto.acabou         ? tr("The video has ended.")
                        : visto.imagemIlegivel ? tr("The picture of this file cannot be decoded: sound alone.")
                        : visto.semImagem      ? tr("Sound alone: the background stays.")
                                               : QString();
  if (aviso == m_labelAviso->text())
    return;
  m_labelAviso->setText(aviso);
  SetLook(m_labelAviso, "state", visto.falhou || visto.imagemIlegivel ? QStringLiteral("held") : QString());
}

void FrmVideoControl::MostraFaixas() {
  const QList<FaixaDeAudio> faixas = m_doors.controle.Faixas();
  if (faixas != m_faixas) {
    m_faixas = faixas;
    m_comboAudio->clear();
    for (const FaixaDeAudio &faixa : faixas)
      m_comboAudio->addItem(faixa.nome.isEmpty() ? tr("Sound %1").arg(faixa.id)
                                                 : QStringLiteral("%1: %2").arg(faixa.id).arg(faixa.nome));
    m_labelAudio->setVisible(faixas.size() > 1);
    m_comboAudio->setVisible(faixas.size() > 1);
  }
  const int atual = m_doors.controle.Faixa();
  for (int i = 0; i < m_faixas.size(); ++i)
    if (m_faixas[i].id == atual && m_comboAudio->currentIndex() != i)
      m_comboAudio->setCurrentIndex(i);
}

void FrmVideoControl::closeEvent(QCloseEvent *event) {
  event->accept();
  if (std::exchange(m_closed, true))
    return;
  m_doors.posicoes.SaveFormPosition(*this, false);
  m_timerProgress->Stop();
  m_doors.controle.Descarrega();
  emit Closed();
}

} // namespace tolmira
