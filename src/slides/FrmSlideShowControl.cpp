#include "slides/FrmSlideShowControl.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/play_keys.h"
#include "controls/ui/volume_box.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace tolmira {

namespace {

constexpr QSize FirstSize{420, 150};

} // namespace

FrmSlideShowControl::FrmSlideShowControl(const ShowDoors &doors) : QWidget(doors.dono, Qt::Dialog), m_doors(doors) {
  setObjectName(QStringLiteral("FrmSlideShowControl"));
  setWindowTitle(tr("Slide show"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_labelTitulo = new ElidedLabel(this);
  m_labelTitulo->setObjectName(QStringLiteral("LabelTitulo"));
  m_labelTitulo->setProperty("look", QStringLiteral("title"));
  column->addWidget(m_labelTitulo);
  m_labelImagemName = new ElidedLabel(this);
  m_labelImagemName->setObjectName(QStringLiteral("LabelImagemName"));
  m_labelImagemName->setProperty("look", QStringLiteral("quiet"));
  m_labelImagemName->setAccessibleName(tr("Picture on show"));
  column->addWidget(m_labelImagemName);
  m_labelAviso = new ElidedLabel(this);
  m_labelAviso->setObjectName(QStringLiteral("LabelAviso"));
  m_labelAviso->setProperty("look", QStringLiteral("quiet"));
  m_labelAviso->setProperty("state", QStringLiteral("held"));
  m_labelAviso->hide();
  column->addWidget(m_labelAviso);
  column->addStretch(1);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_image3 = NewIconButton(QStringLiteral("Image3"), "pause", tr("Pauses the show, or lets it go on (Space)"), this);
  m_imageRestart = NewIconButton(QStringLiteral("ImageRestart"), "restart", tr("Starts the show again"), this);
  m_imageStop = NewIconButton(QStringLiteral("ImageStop"), "stop", tr("Ends the show and brings the theme back"), this);
  for (QPushButton *button : {m_image3, m_imageRestart, m_imageStop})
    row->addWidget(button);
  row->addSpacing(medidas::Margin);
  m_volume = new VolumeBox(tr("Volume of the music"), this);
  row->addWidget(m_volume, 1);
  column->addLayout(row);

  new PlayKeys(this, [this] { Image3(); });
  connect(m_image3, &QPushButton::clicked, this, &FrmSlideShowControl::Image3);
  connect(m_imageRestart, &QPushButton::clicked, this, &FrmSlideShowControl::ImageRestart);
  connect(m_imageStop, &QPushButton::clicked, this, &QWidget::close);
  connect(m_volume, &VolumeBox::Changed, this, [this](int volume) { m_doors.player.DefineVolume(volume); });
}

FrmSlideShowControl::~FrmSlideShowControl() {
  if (!m_closed)
    m_doors.player.Mudou = nullptr;
}

void FrmSlideShowControl::Open() {
  m_doors.player.Mudou = [this] { MostraAvisos(); };
  m_doors.player.Abre();
  Mostra();
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_image3->setFocus();
}

void FrmSlideShowControl::SetSlideShow(const QString &path) {
  m_path = path;
  if (!FileExists(path)) {
    m_doors.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), QStringLiteral("File not found!"));
    close();
    return;
  }
  m_labelTitulo->setText(FileNameWithoutExtension(path, QStringLiteral(".")));
  m_labelTitulo->setToolTip(m_labelTitulo->text());
  Inicia();
}

void FrmSlideShowControl::Inicia() {
  MostraImagem(QString());
  m_doors.player.IniciaSlideShow(m_path);
  Mostra();
  MostraAvisos();
}

void FrmSlideShowControl::ImageRestart() {
  if (FileExists(m_path))
    Inicia();
}

void FrmSlideShowControl::Image3() {
  if (m_doors.player.Acabou())
    return;
  if (m_doors.player.Parado())
    m_doors.player.Play();
  else
    m_doors.player.Pause();
  Mostra();
}

void FrmSlideShowControl::MostraImagem(const QString &nome) {
  m_labelImagemName->setText(nome);
  m_labelImagemName->setToolTip(nome);
}

void FrmSlideShowControl::MostraAvisos() {
  if (m_doors.player.Acabou())
    MostraImagem(tr("The show has ended."));
  m_image3->setEnabled(!m_doors.player.Acabou());
  m_labelAviso->setText(m_doors.player.SemMusica() ? tr("The music of this show cannot be played.") : QString());
  m_labelAviso->setVisible(m_doors.player.SemMusica());
}

void FrmSlideShowControl::ImagemMudou(const QString &nome) {
  MostraImagem(nome);
  m_doors.player.ImagemMudou(nome);
  MostraAvisos();
}

void FrmSlideShowControl::Mostra() {
  m_image3->setIcon(DeskIcon(QLatin1String(m_doors.player.Parado() ? "show" : "pause")));
  m_volume->Mostra(m_doors.player.Volume());
}

void FrmSlideShowControl::closeEvent(QCloseEvent *event) {
  event->accept();
  if (std::exchange(m_closed, true)) // the theme is being built already
    return;
  m_doors.posicoes.SaveFormPosition(*this, false);
  m_doors.player.Mudou = nullptr; // not at the end of the window: by then the next remote may have set its own
  m_doors.player.Fecha();
  emit Closed();
}

} // namespace tolmira
