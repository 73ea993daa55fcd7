#include "slides/FrmSlideShowControl.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"
#include "foundation/text_file.h"
#include "foundation/text_utils.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace tolmira {

namespace {

constexpr QSize FirstSize{420, 150};
constexpr int LeastVolumeWidth = 120;

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
  auto *icon = new QLabel(this);
  icon->setPixmap(DeskIcon(QLatin1String("volume"), cores::Quiet).pixmap(medidas::Icon, medidas::Icon));
  row->addWidget(icon);
  m_sliderVolume = new ValueSlider(this);
  m_sliderVolume->setObjectName(QStringLiteral("sliderVolume"));
  m_sliderVolume->setRange(0, 100);
  m_sliderVolume->setMinimumWidth(LeastVolumeWidth);
  m_sliderVolume->setAccessibleName(tr("Volume of the music"));
  m_sliderVolume->setToolTip(tr("Volume of the music"));
  row->addWidget(m_sliderVolume, 1);
  m_volume = new QLabel(QStringLiteral("100"), this);
  m_volume->setObjectName(QStringLiteral("LbVolume"));
  m_volume->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  m_volume->setMinimumWidth(m_volume->fontMetrics().horizontalAdvance(QStringLiteral("1000")));
  row->addWidget(m_volume);
  column->addLayout(row);

  for (QWidget *part : {static_cast<QWidget *>(m_image3), static_cast<QWidget *>(m_imageRestart),
                        static_cast<QWidget *>(m_imageStop), static_cast<QWidget *>(m_sliderVolume)})
    part->installEventFilter(this);
  installEventFilter(this);
  connect(m_image3, &QPushButton::clicked, this, &FrmSlideShowControl::Image3);
  connect(m_imageRestart, &QPushButton::clicked, this, &FrmSlideShowControl::ImageRestart);
  connect(m_imageStop, &QPushButton::clicked, this, &QWidget::close);
  connect(m_sliderVolume, &ValueSlider::valueChanged, this, [this](int volume) { m_volume->setNum(volume); });
  connect(m_sliderVolume, &ValueSlider::Changed, this, [this](int volume) { m_doors.player.DefineVolume(volume); });
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
  const QSignalBlocker quiet(m_sliderVolume);
  m_sliderVolume->setValue(m_doors.player.Volume());
  m_volume->setNum(m_sliderVolume->value());
}

// Space never presses the button that happens to have the focus, which might be the one that ends the show.
bool FrmSlideShowControl::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  const bool pressed = event->type() == QEvent::KeyPress && !key->isAutoRepeat();
  if (key->key() == Qt::Key_Space) {
    if (pressed)
      Image3();
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    if (auto *button = qobject_cast<QPushButton *>(watched); button && pressed)
      button->click();
    return true;
  }
  return QWidget::eventFilter(watched, event);
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
