#include "captions/ui/caption_look.h"

#include "controls/ui/calm_combo.h"
#include "controls/ui/colour_field.h"
#include "controls/ui/font_box.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace tolmira {

namespace {

const QString Hint = QStringLiteral("Press and hold the mouse button to select the desired color");
const QString HintOfTheLyricsFont = QStringLiteral("Aperte e segure o botão do mouse para selecionar a cor desejada");
constexpr int NumberWidth = 28;
constexpr int BibleStyles = 8;
constexpr int LyricsStyles = 11;
constexpr int Opaque = 10;

QString Spoken(QString caption) {
  return caption.remove(u'&');
}

} // namespace

struct CaptionLook::Nomes {
  QString suffix;
  int styles;
  QString transparency;
  QString hintOfFont;
};

CaptionLook::CaptionLook(EstiloLegenda &estilo, const Nomes &nomes, QWidget *parent)
    : QWidget(parent), m_grid(new QGridLayout(this)) {
  m_grid->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  m_grid->setHorizontalSpacing(medidas::Gap);
  m_grid->setVerticalSpacing(medidas::Gap);
  m_grid->setColumnStretch(1, 1);
  Slider(u"SliderEstilo" + nomes.suffix, tr("St&yle"), 1, nomes.styles, &estilo.estilo);
  Font(estilo, nomes.suffix);
  Place(estilo, nomes.suffix);
  Ticks(estilo, nomes.suffix);
  Colours({u"SelectColorsTextofonte" + nomes.suffix, tr("Te&xt"), nomes.hintOfFont, &estilo.fontColor},
          {u"SelectColorsTextofundo" + nomes.suffix, tr("Bac&kground"), Hint, &estilo.backColor});
  Slider(nomes.transparency, tr("Opac&ity"), 0, Opaque, &estilo.transparencia);
}

CaptionLook::CaptionLook(LegendaLetras &letras, QWidget *parent)
    : CaptionLook(
          letras,
          {QStringLiteral("Letras"), LyricsStyles, QStringLiteral("sliderTransparenciaLetras"), HintOfTheLyricsFont},
          parent) {
  m_grid->setRowStretch(m_row, 1);
}

CaptionLook::CaptionLook(LegendaBiblia &biblia, QWidget *parent)
    : CaptionLook(biblia,
                  {QStringLiteral("Biblia"), BibleStyles, QStringLiteral("sliderTransparenciaTextoBiblia"), Hint},
                  parent) {
  m_grid->setRowMinimumHeight(m_row++, medidas::Gap);
  Tick(Row(tr("Title")), QStringLiteral("ChkNegritoTitulo"), tr("Bol&d title"), &biblia.fontBoldTitulo);
  Colours({QStringLiteral("SelectColorsTitulofonteBiblia"), tr("Tit&le text"), Hint, &biblia.fontColorTitulo},
          {QStringLiteral("SelectColorsTituloFundoBiblia"), tr("Title back&ground"), Hint, &biblia.backColorTitulo});
  Slider(QStringLiteral("sliderTransparenciaTituloBiblia"), tr("Opacity, titl&e"), 0, Opaque,
         &biblia.transparenciaTitulo);
  m_grid->setRowStretch(m_row, 1);
}

void CaptionLook::Mostra() {
  m_reading = true;
  for (const auto &read : m_read)
    read();
  m_reading = false;
}

void CaptionLook::Changed() {
  if (!m_reading)
    emit Mudou();
}

QHBoxLayout *CaptionLook::Row(const QString &caption, QWidget *buddy) {
  auto *label = new QLabel(caption, this);
  label->setBuddy(buddy);
  m_grid->addWidget(label, m_row, 0);
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_grid->addLayout(row, m_row++, 1);
  return row;
}

void CaptionLook::Slider(const QString &name, const QString &caption, int least, int greatest, int *field) {
  auto *slider = new ValueSlider(this);
  slider->setObjectName(name);
  slider->setRange(least, greatest);
  slider->setPageStep(1);
  slider->setAccessibleName(Spoken(caption));
  slider->setToolTip(tr("%1, from %2 to %3").arg(Spoken(caption)).arg(least).arg(greatest));
  auto *number = new QLabel(this);
  number->setFixedWidth(NumberWidth);
  number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  number->setNum(least);
  QHBoxLayout *row = Row(caption, slider);
  row->addWidget(slider, 1);
  row->addWidget(number);
  connect(slider, &QSlider::valueChanged, number, qOverload<int>(&QLabel::setNum));
  connect(slider, &ValueSlider::Changed, this, [this, field](int value) {
    if (m_reading) // a value that the slider lacks stays in the record until the operator gives another
      return;
    *field = value;
    Changed();
  });
  m_read.emplace_back([slider, field] { slider->setValue(*field); });
}

void CaptionLook::Font(EstiloLegenda &estilo, const QString &suffix) {
  auto *font = new FontBox(this);
  font->setObjectName(u"ComboFonte" + suffix);
  font->setAccessibleName(tr("Font"));
  font->setToolTip(tr("Font; the computer of the broadcast needs it too"));
  font->setMinimumContentsLength(8);
  font->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  font->CarregaFontes();
  auto *size = new QDoubleSpinBox(this);
  size->setObjectName(u"TxtTamanho" + suffix);
  size->setDecimals(0);
  size->setRange(1, 999);
  size->setAccessibleName(tr("Size"));
  size->setToolTip(tr("Size of the font; kept, but the page chooses by the size of the picture"));
  QHBoxLayout *row = Row(tr("&Font"), font);
  row->addWidget(font, 1);
  row->addWidget(size);
  connect(font, &QComboBox::currentTextChanged, this, [this, &estilo](const QString &family) {
    if (m_reading || family.isEmpty())
      return;
    estilo.fontName = family;
    Changed();
  });
  connect(size, &QDoubleSpinBox::valueChanged, this, [this, &estilo](double value) {
    if (m_reading)
      return;
    estilo.fontSize = value;
    Changed();
  });
  m_read.emplace_back([font, size, &estilo] {
    font->ShowFont(estilo.fontName);
    size->setValue(estilo.fontSize);
  });
}

void CaptionLook::Place(EstiloLegenda &estilo, const QString &suffix) {
  auto *place = new CalmCombo(this);
  place->setObjectName(u"ComboAlinhamento" + suffix);
  place->setAccessibleName(tr("Alignment"));
  place->setToolTip(tr("Kept with the settings; each style has a place of its own"));
  place->addItems({tr("Left"), tr("Right"), tr("Centre")});
  Row(tr("&Alignment"), place)->addWidget(place, 1);
  connect(place, &QComboBox::currentIndexChanged, this, [this, &estilo](int index) {
    if (m_reading || index < 0)
      return;
    estilo.alinhamento = index;
    Changed();
  });
  m_read.emplace_back([place, &estilo] { place->setCurrentIndex(estilo.alinhamento); });
}

void CaptionLook::Ticks(EstiloLegenda &estilo, const QString &suffix) {
  QHBoxLayout *row = Row(QString());
  Tick(row, u"ChkNegrito" + suffix, tr("&Bold"), &estilo.fontBold);
  Tick(row, u"ChkMaiusculas" + suffix, tr("Ca&pitals"), &estilo.maiusculas);
  Tick(row, u"ChkContorno" + suffix, tr("&Outline"), &estilo.Contorno);
  Tick(row, u"ChkSombra" + suffix, tr("Shado&w"), &estilo.Sombra);
}

void CaptionLook::Tick(QHBoxLayout *row, const QString &name, const QString &caption, bool *field) {
  auto *box = new QCheckBox(caption, this);
  box->setObjectName(name);
  box->setAccessibleName(Spoken(caption));
  box->setToolTip(Spoken(caption));
  row->addWidget(box);
  connect(box, &QCheckBox::toggled, this, [this, field](bool on) {
    *field = on;
    Changed();
  });
  m_read.emplace_back([box, field] { box->setChecked(*field); });
}

void CaptionLook::Colours(const Colour &left, const Colour &right) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Margin);
  for (const Colour &colour : {left, right}) {
    auto *under = new QVBoxLayout;
    under->setSpacing(medidas::Step);
    auto *label = new QLabel(colour.caption, this);
    auto *field = new ColourField(colour.name.toLatin1().constData(), Spoken(colour.caption), this);
    label->setBuddy(field);
    field->setToolTip(colour.hint);
    under->addWidget(label);
    under->addWidget(field);
    row->addLayout(under, 1);
    connect(field, &ColourField::Changed, this, [this, to = colour.field](qint32 value) {
      *to = value;
      Changed();
    });
    m_read.emplace_back([field, from = colour.field] { field->SetColour(*from); });
  }
  m_grid->addLayout(row, m_row++, 0, 1, 2);
}

} // namespace tolmira
