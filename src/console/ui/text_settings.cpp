#include "console/ui/text_settings.h"

#include "controls/ui/calm_combo.h"
#include "controls/ui/desk_icon.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>
#include <functional>

namespace tolmira {

namespace {

constexpr int MaiorZoom = 150; // per cent

void KeepPlace(QWidget *widget) {
  QSizePolicy policy = widget->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget->setSizePolicy(policy);
}

QLabel *Caption(const QString &text, const char *name, QWidget *parent) {
  auto *label = new QLabel(text, parent);
  label->setObjectName(QLatin1String(name));
  label->setProperty("look", QStringLiteral("quiet"));
  KeepPlace(label);
  return label;
}

} // namespace

TextSettings::TextSettings(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  setObjectName(QStringLiteral("Picture3"));
  MakeSliders();
  MakeButtons();
  auto *grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(medidas::Step);
  grid->setVerticalSpacing(medidas::Step);
  const auto row = [grid](int line, int column, QWidget *caption, QWidget *control, QWidget *value) {
    grid->addWidget(caption, line, column);
    grid->addWidget(control, line, column + 1);
    grid->addWidget(value, line, column + 2);
  };
  row(0, 0, m_lbEstilo, m_sliderExLouvor, m_valorEstilo);
  row(1, 0, m_lbFaixa, m_sliderFaixa, m_valorFaixa);
  grid->setColumnMinimumWidth(3, medidas::Gap);
  row(0, 4, m_label31, m_sliderZoom, m_valorZoom);
  grid->addWidget(m_lbTamanho, 1, 4);
  grid->addWidget(m_comboFontSize, 1, 5, 1, 2);
  grid->setColumnMinimumWidth(7, medidas::Gap);
  grid->addWidget(m_picture4, 0, 8, 2, 1);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(5, 1);
}

void TextSettings::MakeSliders() {
  const auto slider = [this](const char *name, int least, int most, const QString &spoken, const QString &tip) {
    auto *made = new ValueSlider(this);
    made->setObjectName(QLatin1String(name));
    made->setRange(least, most);
    made->setAccessibleName(spoken);
    made->setToolTip(tip);
    KeepPlace(made);
    return made;
  };
  const auto value = [this](const char *name, const QString &widest) {
    auto *label = new QLabel(widest, this);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(widest) + 2);
    KeepPlace(label);
    return label;
  };

  m_lbEstilo = Caption(tr("St&yle"), "LbEstilo", this);
  m_sliderExLouvor = slider("SliderExLouvor", 0, TextControls::UltimoEstilo, tr("Style of songs"),
                            tr("Style of songs: 0 and 1 plain, 2 to 6 with a band, 7 and 8 animated.\n"
                               "PageUp, PageDown, Home and End change it while a song is on show."));
  m_lbEstilo->setBuddy(m_sliderExLouvor);
  m_valorEstilo = value("ValorEstilo", QStringLiteral("8"));
  TextControls &textos = m_parts.textos;
  connect(m_sliderExLouvor, &ValueSlider::Changed, this, [&textos](int v) { textos.SliderExLouvor(v); });

  m_lbFaixa = Caption(tr("Band"), "LbFaixa", this);
  m_sliderFaixa = slider("SliderFaixa", 0, 10, tr("Strength of the text band"),
                         tr("How dark the band behind the text is: 0 is none, 10 is black"));
  connect(m_sliderFaixa, &ValueSlider::Changed, this, [&textos](int v) { textos.SliderFaixa(v); });
  m_valorFaixa = value("ValorFaixa", QStringLiteral("10"));
  m_label31 = Caption(tr("Zoom"), "Label31", this);
  m_sliderZoom = slider("SliderZoom", TextControls::MenorZoom, MaiorZoom, tr("Zoom of the page, per cent"),
                        tr("Zoom of the page while a song is on show: 100% is the size that fits"));
  connect(m_sliderZoom, &ValueSlider::Changed, this, [&textos](int v) { textos.SliderZoom(v); });
  m_valorZoom = value("ValorZoom", QStringLiteral("150%"));
  m_lbTamanho = Caption(tr("Size"), "LbTamanho", this);
  m_comboFontSize = new CalmCombo(this);
  m_comboFontSize->setObjectName(QStringLiteral("ComboFontSize"));
  m_comboFontSize->setAccessibleName(tr("Font size"));
  m_comboFontSize->addItems(
      {QStringLiteral("Small Fonts"), QStringLiteral("Medium Fonts"), QStringLiteral("Large Fonts")});
  m_comboFontSize->setToolTip(tr("Size of songs that stand in the middle of the screen"));
  connect(m_comboFontSize, &QComboBox::activated, this, [&textos](int index) { textos.ComboFontSize(index); });
  m_lbTamanho->setBuddy(m_comboFontSize);
  KeepPlace(m_comboFontSize);
}

void TextSettings::MakeButtons() {
  m_picture4 = new QWidget(this);
  m_picture4->setObjectName(QStringLiteral("Picture4"));
  KeepPlace(m_picture4);
  auto *grid = new QGridLayout(m_picture4);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(medidas::Step);
  const auto button = [this, grid](const QString &name, const char *drawing, const QString &spoken, int row, int column,
                                   const std::function<void()> &press) {
    QPushButton *made = NewIconButton(name, drawing, spoken, m_picture4);
    made->setCheckable(true);
    // What is pressed shows what holds, and that is for the logic to say.
    connect(made, &QPushButton::clicked, this, [this, press] {
      press();
      Atualiza();
    });
    grid->addWidget(made, row, column);
    return made;
  };
  TextControls &textos = m_parts.textos;
  m_image4[0] =
      button(QStringLiteral("Image40"), "align-left", tr("Align songs left"), 0, 0, [&textos] { textos.Image4(0); });
  m_image4[2] =
      button(QStringLiteral("Image42"), "align-center", tr("Centre songs"), 0, 1, [&textos] { textos.Image4(2); });
  m_image4[1] =
      button(QStringLiteral("Image41"), "align-right", tr("Align songs right"), 0, 2, [&textos] { textos.Image4(1); });
  m_alinhamentoVertical = button(QStringLiteral("ImgAlinhamentoVertical"), "valign-middle",
                                 tr("Where the text stands on the screen: middle, top, bottom"), 1, 0,
                                 [&textos] { textos.ImgAlinhamentoVertical(); });
  m_alinhamentoVertical->setCheckable(false);
  m_imgBtFontSize[0] =
      button(QStringLiteral("ImgBtFontSize1"), "text-small", tr("Text of the console in its normal size"), 1, 1,
             [&textos] { textos.ImgBtFontSize(1); });
  m_imgBtFontSize[1] =
      button(QStringLiteral("ImgBtFontSize2"), "text-large", tr("Text of the console in its large size"), 1, 2,
             [&textos] { textos.ImgBtFontSize(2); });
}

void TextSettings::Atualiza() {
  const PainelConsole &painel = m_parts.console.painel;
  const AjustesTexto &ajustes = m_parts.console.ajustes;
  const auto setValue = [](QSlider *slider, QLabel *label, int value, const QString &unit = {}) {
    const QSignalBlocker quiet(slider);
    if (!slider->isSliderDown()) // whoever drags it is ahead of the record
      slider->setValue(value);
    label->setText(QString::number(value) + unit);
  };
  setValue(m_sliderExLouvor, m_valorEstilo, ajustes.EstiloLouvor);
  setValue(m_sliderFaixa, m_valorFaixa, ajustes.TransparenciaFaixa.toInt());
  {
    const QSignalBlocker quiet(m_sliderZoom);
    m_sliderZoom->setMaximum(std::max(MaiorZoom, painel.SliderZoom)); // a stored zoom may lie beyond
  }
  setValue(m_sliderZoom, m_valorZoom, painel.SliderZoom, QStringLiteral("%"));
  m_comboFontSize->setCurrentIndex(ajustes.FontSizeClass);

  for (QWidget *widget : {static_cast<QWidget *>(m_lbEstilo), static_cast<QWidget *>(m_sliderExLouvor),
                          static_cast<QWidget *>(m_valorEstilo)})
    widget->setVisible(painel.SliderExLouvorVisible);
  for (QWidget *widget :
       {static_cast<QWidget *>(m_lbFaixa), static_cast<QWidget *>(m_sliderFaixa), static_cast<QWidget *>(m_valorFaixa)})
    widget->setVisible(painel.LbFaixaVisible);
  for (QWidget *widget :
       {static_cast<QWidget *>(m_label31), static_cast<QWidget *>(m_sliderZoom), static_cast<QWidget *>(m_valorZoom)})
    widget->setVisible(painel.SliderZoomVisible);
  m_comboFontSize->setVisible(painel.ComboFontSizeVisible);
  m_lbTamanho->setVisible(painel.ComboFontSizeVisible);
  m_picture4->setVisible(painel.Picture4Visible);

  for (int i = 0; i < 3; ++i)
    m_image4[static_cast<size_t>(i)]->setChecked(i == ajustes.Alinhamento);
  const char *const vertical[] = {"valign-top", "valign-bottom", "valign-middle"};
  if (const int now = qBound(0, painel.ImgAlinhamentoVertical, 2); now != m_verticalShown) {
    m_verticalShown = now; // a drawing costs more than the rest of this copy, which runs with every key
    m_alinhamentoVertical->setIcon(DeskIcon(QLatin1String(vertical[now])));
  }
  m_imgBtFontSize[0]->setChecked(!ajustes.FonteGrande);
  m_imgBtFontSize[1]->setChecked(ajustes.FonteGrande);
}

} // namespace tolmira
