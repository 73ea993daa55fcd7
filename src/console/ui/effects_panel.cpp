#include "console/ui/effects_panel.h"

#include "controls/ui/calm_combo.h"
#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"
#include "display/effects.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace tolmira {

namespace {

// A family that the catalogue does not name, from a file somebody edited, is shown all the same.
void Choose(QComboBox *combo, const QString &value) {
  if (combo->findText(value) < 0 && !value.isEmpty())
    combo->addItem(value);
  combo->setCurrentText(value);
}

QColor FromStored(qint32 colour) { // 0x00BBGGRR
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

} // namespace

EffectsPanel::EffectsPanel(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  column->addLayout(MakeCombos());
  column->addLayout(MakeFilters());
  column->addStretch(1);
  ShowColour();
}

QLabel *EffectsPanel::Caption(const QString &text, const char *look) {
  auto *label = new QLabel(text, this);
  label->setProperty("look", QLatin1String(look));
  return label;
}

// Made in the order in which Tab goes through them.
QGridLayout *EffectsPanel::MakeCombos() {
  EffectControls &efeitos = m_parts.efeitos;
  QLabel *title = Caption(tr("Effects and filters"), "caps");
  title->setMinimumHeight(medidas::Heading);
  m_fontes = MakeCombo("ComboFontes", tr("Font of the text"),
                       [&efeitos](const QString &fonte) { efeitos.ComboFontes(fonte); });
  m_cor = new QPushButton(this);
  m_cor->setObjectName(QStringLiteral("SelectColors1"));
  m_cor->setProperty("look", QStringLiteral("icon"));
  m_cor->setIconSize({medidas::Icon, medidas::Icon});
  m_cor->setAccessibleName(tr("Background colour"));
  m_cor->setToolTip(tr("Background colour: it takes the place of the theme's picture or video"));
  connect(m_cor, &QPushButton::clicked, this, [&efeitos] { efeitos.SelectColors1(); });

  m_imagem = MakeCombo("ComboEfeitoImagem", tr("Effect of pictures"),
                       [&efeitos](const QString &familia) { efeitos.ComboEfeitoImagem(familia); });
  m_imagemExtra = MakeCombo("ComboEfeitoImagemExtra", tr("Variant of the picture effect"),
                            [&efeitos](const QString &variante) { efeitos.ComboEfeitoImagemExtra(variante); });
  m_move =
      MakeBox("ChkMoveImagem", "move", tr("Pictures move slowly"), [&efeitos](bool on) { efeitos.ChkMoveImagem(on); });
  QPushButton *fadeImagem = MakeBox("ChkFadeImagem", "fade", tr("Pictures fade in as well, from the next page on"),
                                    [&efeitos](bool on) { efeitos.ChkFadeImagem(on); });
  QPushButton *zoomImagem = MakeBox("ChkZoomImagem", "zoom", tr("Pictures zoom as well, from the next page on"),
                                    [&efeitos](bool on) { efeitos.ChkZoomImagem(on); });
  m_texto = MakeCombo("ComboEfeitoTexto", tr("Effect of the text"),
                      [&efeitos](const QString &familia) { efeitos.ComboEfeitoTexto(familia); });
  m_textoExtra = MakeCombo("ComboEfeitoTextoExtra", tr("Variant of the text effect"),
                           [&efeitos](const QString &variante) { efeitos.ComboEfeitoTextoExtra(variante); });
  QPushButton *fadeTexto = MakeBox("ChkFadeTexto", "fade", tr("Text fades in as well, from the next verse on"),
                                   [&efeitos](bool on) { efeitos.ChkFadeTexto(on); });
  QPushButton *zoomTexto = MakeBox("ChkZoomTexto", "zoom", tr("Text zooms as well, from the next verse on"),
                                   [&efeitos](bool on) { efeitos.ChkZoomTexto(on); });
  m_imagem->addItems(FamiliasDeEfeito(GrupoEfeito::Imagem, DirecaoEfeito::In));
  m_texto->addItems(FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::In));

  auto *head = new QHBoxLayout;
  head->addWidget(title, 1);
  QLabel *font = Caption(tr("Font"), "quiet");
  font->setBuddy(m_fontes);
  head->addWidget(font);
  auto *combos = new QGridLayout;
  combos->setHorizontalSpacing(medidas::Step);
  combos->setVerticalSpacing(medidas::Step);
  combos->addLayout(head, 0, 0, 1, 2);
  combos->addWidget(m_fontes, 0, 2, 1, 3);
  combos->addWidget(m_cor, 0, 5);
  const auto named = [this, combos](const QString &text, QComboBox *box, int row) {
    QLabel *label = Caption(text, "quiet");
    label->setBuddy(box); // a screen reader takes the name of a box from the label that belongs to it
    combos->addWidget(label, row, 0);
  };
  named(tr("Picture"), m_imagem, 1);
  combos->addWidget(m_imagem, 1, 1);
  combos->addWidget(m_imagemExtra, 1, 2);
  combos->addWidget(m_move, 1, 3);
  combos->addWidget(fadeImagem, 1, 4);
  combos->addWidget(zoomImagem, 1, 5);
  named(tr("Text"), m_texto, 2);
  combos->addWidget(m_texto, 2, 1);
  combos->addWidget(m_textoExtra, 2, 2, 1, 2); // "FadeIn Down" wants the room
  combos->addWidget(fadeTexto, 2, 4);
  combos->addWidget(zoomTexto, 2, 5);
  combos->setColumnStretch(1, 1);
  combos->setColumnStretch(2, 1);
  return combos;
}

QGridLayout *EffectsPanel::MakeFilters() {
  EffectControls &efeitos = m_parts.efeitos;
  auto *filters = new QGridLayout;
  filters->setHorizontalSpacing(medidas::Gap);
  filters->setVerticalSpacing(medidas::Step);
  const QString percent = QStringLiteral("%");
  m_brilho = MakeFilter(filters, {"slider1", tr("Brightness"), EffectControls::MaiorFiltro, percent}, 0, 0,
                        [&efeitos](int v) { efeitos.slider1(v); });
  m_contraste = MakeFilter(filters, {"slider3", tr("Contrast"), EffectControls::MaiorFiltro, percent}, 0, 4,
                           [&efeitos](int v) { efeitos.slider3(v); });
  m_saturacao = MakeFilter(filters, {"slider4", tr("Saturation"), EffectControls::MaiorFiltro, percent}, 1, 0,
                           [&efeitos](int v) { efeitos.slider4(v); });
  m_desfoque = MakeFilter(filters, {"slider5", tr("Blur"), EffectControls::MaiorDesfoque, QStringLiteral(" px")}, 1, 4,
                          [&efeitos](int v) { efeitos.slider5(v); });
  filters->setColumnStretch(1, 1);
  filters->setColumnMinimumWidth(3, medidas::Gap);
  filters->setColumnStretch(5, 1);
  return filters;
}

QComboBox *EffectsPanel::MakeCombo(const char *name, const QString &spoken,
                                   const std::function<void(const QString &)> &choose) {
  auto *combo = new CalmCombo(this);
  combo->setObjectName(QLatin1String(name));
  combo->setAccessibleName(spoken);
  combo->setToolTip(spoken);
  // A family without variants has no second box; its place stays.
  QSizePolicy policy = combo->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  combo->setSizePolicy(policy);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(6);
  connect(combo, &QComboBox::textActivated, this, choose);
  return combo;
}

QPushButton *EffectsPanel::MakeBox(const char *name, const char *drawing, const QString &tip,
                                   const std::function<void(bool)> &tick) {
  QPushButton *box = NewIconButton(QLatin1String(name), drawing, tip, this);
  box->setCheckable(true);
  connect(box, &QPushButton::clicked, this, tick);
  return box;
}

EffectsPanel::Filter EffectsPanel::MakeFilter(QGridLayout *grid, const Scale &scale, int row, int column,
                                              const std::function<void(int)> &move) {
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(scale.name));
  slider->setRange(0, scale.most);
  slider->setAccessibleName(scale.caption);
  slider->setToolTip(tr("%1 of the theme's pictures").arg(scale.caption));
  auto *value = new QLabel(this);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setFixedWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("200%")) + 4);
  connect(slider, &ValueSlider::Changed, this, [value, unit = scale.unit, move](int v) {
    value->setText(QString::number(v) + unit);
    move(v);
  });
  grid->addWidget(Caption(scale.caption, "quiet"), row, column);
  grid->addWidget(slider, row, column + 1);
  grid->addWidget(value, row, column + 2);
  return {slider, value, scale.unit};
}

void EffectsPanel::CarregaFontes() {
  QStringList fontes = QFontDatabase::families();
  // Fonts for text that runs from top to bottom carry an "@" before their name.
  fontes.removeIf([](const QString &nome) { return nome.startsWith(u'@'); });
  m_fontes->clear();
  m_fontes->addItems(fontes);
  ShowFont();
}

// A font of the theme that is not installed is named all the same, though it is no choice.
void EffectsPanel::ShowFont() {
  const QString &fonte = std::as_const(m_parts.efeitos).Visual().Font_Name;
  m_fontes->setPlaceholderText(fonte);
  m_fontes->setCurrentIndex(m_fontes->findText(fonte));
}

void EffectsPanel::ShowColour() {
  QPixmap swatch(medidas::Icon, medidas::Icon);
  swatch.fill(FromStored(std::as_const(m_parts.efeitos).Visual().CordeFundo));
  QPainter painter(&swatch);
  painter.setPen(QColor(cores::Quiet)); // the edge of a colour that is like the panel's
  painter.drawRect(swatch.rect().adjusted(0, 0, -1, -1));
  painter.end();
  m_cor->setIcon(QIcon(swatch));
}

// The controls only copy what the theme in force says; nothing is sent by that.
void EffectsPanel::ThemesChanged() {
  const TemaRecord &tema = std::as_const(m_parts.efeitos).Visual();
  ShowFont();
  ShowColour();
  m_move->setChecked(tema.MoveImagens);
  Choose(m_imagem, tema.Efeito_Imagem_Fx);
  Choose(m_texto, tema.Efeito_Texto_Fx);
  const auto variants = [](QComboBox *combo, GrupoEfeito grupo, const QString &familia, const QString &variante) {
    combo->clear();
    combo->addItems(VariantesDeEfeito(grupo, familia, DirecaoEfeito::In));
    combo->setVisible(combo->count() > 0);
    if (combo->count() > 0)
      Choose(combo, variante);
  };
  variants(m_imagemExtra, GrupoEfeito::Imagem, tema.Efeito_Imagem_Fx, tema.Efeito_Imagem_FxExtra);
  variants(m_textoExtra, GrupoEfeito::Texto, tema.Efeito_Texto_Fx, tema.Efeito_Texto_FxExtra);
  const auto set = [](const Filter &filter, int value) {
    const QSignalBlocker quiet(filter.slider);
    if (!filter.slider->isSliderDown())
      filter.slider->setValue(value);
    filter.value->setText(QString::number(value) + filter.unit);
  };
  set(m_brilho, tema.brightness);
  set(m_contraste, tema.contrast);
  set(m_saturacao, tema.saturate);
  set(m_desfoque, tema.blur);
}

} // namespace tolmira
