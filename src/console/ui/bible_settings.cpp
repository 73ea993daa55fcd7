#include "console/ui/bible_settings.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <functional>
#include <algorithm>

namespace tolmira {

namespace {

constexpr int MaiorZoom = 150; // per cent

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
  TextControls &controles = m_parts.textos;

  QLabel *style = caption(0, 0, tr("St&yle"));
  m_sliderExBiblia = slider(0, 0, "SliderExBiblia", 0, TextControls::UltimoEstiloBiblia,
                            tr("Layout of Bible text: 1 has the reference below, 2 to 6 a title, 0 shows no text"));
  style->setBuddy(m_sliderExBiblia);
  m_valorEstilo = value(0, 0, "ValorEstiloBiblia", QStringLiteral("10"));
  connect(m_sliderExBiblia, &ValueSlider::Changed, this, [&controles](int v) { controles.SliderExBiblia(v); });

  caption(1, 0, tr("Band"));
  m_slider2 = slider(1, 0, "slider2", 0, 10, tr("Strength of the band behind Bible text"));
  m_valorFaixa = value(1, 0, "ValorFaixaBiblia", QStringLiteral("10"));
  connect(m_slider2, &ValueSlider::Changed, this, [this, &controles](int v) {
    controles.slider2(v);
    if (!m_slider2->isSliderDown())
      controles.slider2Solto();
  });
  connect(m_slider2, &QSlider::sliderReleased, this, [&controles] { controles.slider2Solto(); });

  grid->setColumnMinimumWidth(3, medidas::Gap);
  caption(0, 4, tr("Zoom"));
  m_sliderZoomBiblia = slider(0, 4, "sliderZoomBiblia", TextControls::MenorZoom, MaiorZoom,
                              tr("Zoom of the page while Bible text is on show"));
  m_valorZoom = value(0, 4, "ValorZoomBiblia", QStringLiteral("150%"));
  connect(m_sliderZoomBiblia, &ValueSlider::Changed, this, [&controles](int v) { controles.sliderZoomBiblia(v); });

  caption(1, 4, tr("Size"));
  m_sliderFontSizeAjust = slider(1, 4, "sliderFontSizeAjust", 0, TextControls::MaiorAjusteBiblia,
                                 tr("Size of Bible text: 100% is the size that fits the screen"));
  m_valorTamanho = value(1, 4, "ValorTamanhoBiblia", QStringLiteral("150%"));
  connect(m_sliderFontSizeAjust, &ValueSlider::Changed, this,
          [&controles](int v) { controles.sliderFontSizeAjust(v); });

  grid->setColumnMinimumWidth(7, medidas::Gap);
  struct Face {
    int alinhamento;
    const char *drawing;
    QString tip;
  };
  const auto button = [this](const QString &name, const char *drawing, const QString &tip,
                             const std::function<void()> &press) {
    QPushButton *made = NewIconButton(name, drawing, tip, this);
    made->setCheckable(true);
    connect(made, &QPushButton::clicked, this, [this, press] {
      press();
      Atualiza();
    });
    return made;
  };
  const Face faces[] = {{0, "align-left", tr("Align Bible text left")},
                        {2, "align-center", tr("Centre Bible text")},
                        {1, "align-right", tr("Align Bible text right")}};
  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(medidas::Step);
  for (const Face &face : faces) {
    QPushButton *made = button(QStringLiteral("Image5%1").arg(face.alinhamento), face.drawing, face.tip,
                               [&controles, alinhamento = face.alinhamento] { controles.Image5(alinhamento); });
    buttons->addWidget(made);
    m_image5[static_cast<size_t>(face.alinhamento)] = made;
  }
  auto *lower = new QHBoxLayout;
  lower->setSpacing(medidas::Step);
  m_alinhamentoVertical = button(QStringLiteral("ImgAlinhamentoVerticalBiblia"), "valign-middle",
                                 tr("Where Bible text stands on the screen: middle, top, bottom"),
                                 [&controles] { controles.ImgAlinhamentoVertical(); });
  m_alinhamentoVertical->setCheckable(false);
  lower->addWidget(m_alinhamentoVertical);
  m_imgBtFontSize[0] =
      button(QStringLiteral("ImgBtFontSizeBiblia1"), "text-small", tr("Passage on the console in its normal size"),
             [&controles] { controles.ImgBtFontSize(1); });
  m_imgBtFontSize[1] =
      button(QStringLiteral("ImgBtFontSizeBiblia2"), "text-large", tr("Passage on the console in its large size"),
             [&controles] { controles.ImgBtFontSize(2); });
  lower->addWidget(m_imgBtFontSize[0]);
  lower->addWidget(m_imgBtFontSize[1]);
  grid->addLayout(lower, 1, 8);
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
  {
    const QSignalBlocker quiet(m_sliderZoomBiblia);
    m_sliderZoomBiblia->setMaximum(std::max(MaiorZoom, painel.SliderZoom)); // a stored zoom may lie beyond
  }
  setValue(m_sliderZoomBiblia, m_valorZoom, painel.SliderZoom, percent(painel.SliderZoom));
  setValue(m_sliderFontSizeAjust, m_valorTamanho, TextControls::ValorDeEscala(ajustes.EscalaBiblia),
           percent(ajustes.EscalaBiblia));
  for (int i = 0; i < 3; ++i)
    m_image5[static_cast<size_t>(i)]->setChecked(i == ajustes.AlinhamentoBiblia);
  const char *const vertical[] = {"valign-top", "valign-bottom", "valign-middle"};
  if (const int now = qBound(0, painel.ImgAlinhamentoVertical, 2); now != m_verticalShown) {
    m_verticalShown = now; // a drawing costs more than the rest of this copy, which runs with every key
    m_alinhamentoVertical->setIcon(DeskIcon(QLatin1String(vertical[now])));
  }
  m_imgBtFontSize[0]->setChecked(!ajustes.FonteGrande);
  m_imgBtFontSize[1]->setChecked(ajustes.FonteGrande);
}

} // namespace tolmira
