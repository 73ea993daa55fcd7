#include "notices/FrmAvisoConfig.h"

#include "controls/ui/colour_field.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"
#include "notices/ui/notice_preview.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString ColourHint = QStringLiteral("Press and hold the mouse button to select the desired color");
constexpr int LeastHeight = 2; // per cent of the screen, as the page has it
constexpr int GreatestHeight = 50;
constexpr int GreatestSpeed = 99;
constexpr int NumberWidth = 40;

} // namespace

FrmAvisoConfig::FrmAvisoConfig(const NoticeDoors &doors)
    : QDialog(doors.dono), m_doors(doors), m_preview(new NoticePreview(this)) {
  setObjectName(QStringLiteral("FrmAvisoConfig"));
  setWindowTitle(tr("Look of the notices"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  column->addWidget(m_preview, 0, Qt::AlignHCenter);
  MakePlace(column);
  MakeColours(column);
  m_slider1 = MakeSlider(column, "slider1", tr("&Height"), LeastHeight, GreatestHeight,
                         tr("Height of the band, in per cent of the screen"));
  m_slider2 = MakeSlider(column, "slider2", tr("S&peed"), 0, GreatestSpeed, tr("How fast the text runs"));
  MakeButtons(column);
}

void FrmAvisoConfig::MakePlace(QBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Margin);
  row->addWidget(new QLabel(tr("Preview"), this));
  const auto option = [&](const char *name, const QString &text) {
    auto *made = new QRadioButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tr("Where the preview shows the band; on the projection it runs at the bottom"));
    row->addWidget(made);
    connect(made, &QRadioButton::toggled, this, [this] { Mostra(); });
    return made;
  };
  m_optionFlat1 = option("OptionFlat1", tr("at the &top"));
  m_optionFlat2 = option("OptionFlat2", tr("at the &bottom"));
  row->addStretch(1);
  column->addLayout(row);
}

void FrmAvisoConfig::MakeColours(QBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Margin);
  const auto field = [&](const char *name, const QString &caption) {
    auto *under = new QVBoxLayout;
    under->setSpacing(medidas::Step);
    auto *made = new ColourField(name, QString(caption).remove(u'&'), this);
    auto *label = new QLabel(caption, this);
    label->setBuddy(made);
    under->addWidget(label);
    made->setToolTip(ColourHint);
    under->addWidget(made);
    row->addLayout(under, 1);
    connect(made, &ColourField::Changed, this, [this] { Mostra(); });
    return made;
  };
  m_selectColors1 = field("SelectColors1", tr("Ba&nd"));
  m_selectColors2 = field("SelectColors2", tr("Te&xt"));
  column->addLayout(row);
}

ValueSlider *FrmAvisoConfig::MakeSlider(QBoxLayout *column, const char *name, const QString &caption, int least,
                                        int greatest, const QString &tip) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  auto *label = new QLabel(caption, this);
  label->setMinimumWidth(2 * NumberWidth);
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(name));
  slider->setRange(least, greatest);
  slider->setAccessibleName(QString(caption).remove(u'&'));
  slider->setToolTip(tip);
  label->setBuddy(slider);
  auto *number = new QLabel(this);
  number->setFixedWidth(NumberWidth);
  number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  number->setNum(least);
  row->addWidget(label);
  row->addWidget(slider, 1);
  row->addWidget(number);
  column->addLayout(row);
  connect(slider, &QSlider::valueChanged, number, qOverload<int>(&QLabel::setNum));
  connect(slider, &ValueSlider::Changed, this, [this] { Mostra(); });
  return slider;
}

void FrmAvisoConfig::MakeButtons(QBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  row->addStretch(1);
  auto *save = new QPushButton(tr("&Save"), this);
  save->setObjectName(QStringLiteral("Command1"));
  save->setProperty("look", QStringLiteral("main"));
  save->setToolTip(tr("Saves the look for the next notices (Enter)"));
  save->setDefault(true);
  connect(save, &QPushButton::clicked, this, &FrmAvisoConfig::Salva);
  row->addWidget(save);
  auto *close = new QPushButton(tr("Close"), this);
  close->setObjectName(QStringLiteral("Command2"));
  close->setToolTip(tr("Leaves the look as it was (Esc)"));
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  row->addWidget(close);
  column->addLayout(row);
}

void FrmAvisoConfig::Open() {
  if (!isVisible()) {
    const VisualDoAviso visual = LeVisualDoAviso(m_doors.store);
    m_selectColors1->SetColour(visual.FundoAvisoColor);
    m_selectColors2->SetColour(visual.LetraAvisoColor);
    m_slider1->setValue(visual.PorcentoAviso);
    m_slider2->setValue(visual.VelocAviso);
    m_optionFlat2->setChecked(true);
    Mostra();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_selectColors1->setFocus();
}

VisualDoAviso FrmAvisoConfig::Visual() const {
  return {m_selectColors1->Colour(), m_selectColors2->Colour(), m_slider1->value(), m_slider2->value()};
}

void FrmAvisoConfig::Mostra() {
  if (m_optionFlat1 && m_selectColors2 && m_slider2)
    m_preview->Mostra(Visual(), m_optionFlat1->isChecked());
}

void FrmAvisoConfig::Salva() {
  if (GravaVisualDoAviso(m_doors.store, Visual()))
    close();
  else
    m_doors.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"),
                           tr("The look of the notices could not be saved."));
}

void FrmAvisoConfig::hideEvent(QHideEvent *event) {
  if (!event->spontaneous())
    m_doors.posicoes.SaveFormPosition(*this, false);
  QDialog::hideEvent(event);
}

} // namespace tolmira
