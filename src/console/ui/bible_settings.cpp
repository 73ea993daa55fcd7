#include "console/ui/bible_settings.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"

namespace tolmira {

namespace {

constexpr int MenorZoom = 60; // per cent
constexpr int MaiorZoom = 150;

} // namespace

BibleSettings::BibleSettings(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  setObjectName(QStringLiteral("Picture7"));
  auto *grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(medidas::Step);
  grid->setVerticalSpacing(medidas::Step);

  const auto caption = [this, grid](int row, int column, const QString &text) {
    auto *label = new QLabel(text, this);
    label->setProperty("look", QStringLiteral("quiet"));
    grid->addWidget(label, row, column);
    return label;
  };
  const auto slider = [this, grid](int row, int column, const char *name, int least, int most, const QString &tip) {
    auto *made = new ValueSlider(this);
    made->setObjectName(QLatin1String(name));
    made->setRange(least, most);
    made->setToolTip(tip);
    made->setAccessibleName(tip.section(u':', 0, 0).section(u'\n', 0, 0));
    grid->addWidget(made, row, column + 1);
    return made;
  };
  const auto value = [this, grid](int row, int column, const char *name, const QString &widest) {
    auto *label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(widest) + 2);
    grid->addWidget(label, row, column + 2);
    return label;
  };
  ScreenControls &controles = m_parts.controles;

  QLabel *style = caption(0, 0, tr("St&yle"));
  m_sliderExBiblia = slider(0, 0, "SliderExBiblia", 0, ScreenControls::UltimoEstiloBiblia,
                            tr("Layout of Bible text: 1 has the reference below, 2 to 6 a title, 0 shows no text"));
  style->setBuddy(m_sliderExBiblia);
  m_valorEstilo = value(0, 0, "ValorEstiloBiblia", QStringLiteral("10"));
  connect(m_sliderExBiblia, &QSlider::valueChanged, this, [&controles](int v) { controles.SliderExBiblia(v); });

  caption(1, 0, tr("Band"));
  m_slider2 = slider(1, 0, "slider2", 0, 10, tr("Strength of the band behind Bible text"));
  m_valorFaixa = value(1, 0, "ValorFaixaBiblia", QStringLiteral("10"));
  connect(m_slider2, &QSlider::valueChanged, this, [this, &controles](int v) {
    controles.slider2(v);
    if (!m_slider2->isSliderDown())
      controles.slider2Solto();
  });
  connect(m_slider2, &QSlider::sliderReleased, this, [&controles] { controles.slider2Solto(); });

  grid->setColumnMinimumWidth(3, medidas::Gap);
  caption(0, 4, tr("Zoom"));
  m_sliderZoomBiblia =
      slider(0, 4, "sliderZoomBiblia", MenorZoom, MaiorZoom, tr("Zoom of the page while Bible text is on show"));
  m_valorZoom = value(0, 4, "ValorZoomBiblia", QStringLiteral("150%"));
  connect(m_sliderZoomBiblia, &QSlider::valueChanged, this, [&controles](int v) { controles.sliderZoomBiblia(v); });

  caption(1, 4, tr("Size"));
  m_sliderFontSizeAjust = slider(1, 4, "sliderFontSizeAjust", 0, ScreenControls::MaiorAjusteBiblia,
                                 tr("Size of Bible text: 100% is the size that fits the screen"));
  m_valorTamanho = value(1, 4, "ValorTamanhoBiblia", QStringLiteral("150%"));
  connect(m_sliderFontSizeAjust, &QSlider::valueChanged, this,
          [&controles](int v) { controles.sliderFontSizeAjust(v); });

  grid->setColumnMinimumWidth(7, medidas::Gap);
  struct Face {
    int alinhamento;
    const char *drawing;
    QString tip;
  };
  const Face faces[] = {{0, "align-left", tr("Align Bible text left")},
                        {2, "align-center", tr("Centre Bible text")},
                        {1, "align-right", tr("Align Bible text right")}};
  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(medidas::Step);
  for (const Face &face : faces) {
    auto *button = new QPushButton(this);
    button->setObjectName(QStringLiteral("Image5%1").arg(face.alinhamento));
    button->setProperty("look", QStringLiteral("icon"));
    button->setIcon(DeskIcon(QLatin1String(face.drawing)));
    button->setIconSize({medidas::Icon, medidas::Icon});
    button->setCheckable(true);
    button->setAccessibleName(face.tip);
    button->setToolTip(face.tip);
    connect(button, &QPushButton::clicked, this, [this, &controles, alinhamento = face.alinhamento] {
      controles.Image5(alinhamento);
      Atualiza();
    });
    buttons->addWidget(button);
    m_image5[static_cast<size_t>(face.alinhamento)] = button;
  }
  grid->addLayout(buttons, 0, 8);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(5, 1);
}

void BibleSettings::Atualiza() {
  const PainelConsole &painel = m_parts.console.painel;
  const AjustesTexto &ajustes = m_parts.console.ajustes;
  const auto setValue = [](QSlider *slider, QLabel *label, int value, const QString &shown) {
    const QSignalBlocker quiet(slider);
    if (!slider->isSliderDown())
      slider->setValue(value);
    label->setText(shown);
  };
  const auto percent = [](double value) -> QString { return QString::number(value) + u'%'; };
  setValue(m_sliderExBiblia, m_valorEstilo, ajustes.EstiloBiblia, QString::number(ajustes.EstiloBiblia));
  setValue(m_slider2, m_valorFaixa, ajustes.SombraVerso, QString::number(ajustes.SombraVerso));
  setValue(m_sliderZoomBiblia, m_valorZoom, painel.SliderZoom, percent(painel.SliderZoom));
  setValue(m_sliderFontSizeAjust, m_valorTamanho, ScreenControls::ValorDeEscala(ajustes.EscalaBiblia),
           percent(ajustes.EscalaBiblia));
  for (int i = 0; i < 3; ++i)
    m_image5[static_cast<size_t>(i)]->setChecked(i == ajustes.AlinhamentoBiblia);
}

} // namespace tolmira
