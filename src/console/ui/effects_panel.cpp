#include "console/ui/effects_panel.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"
#include "display/effects.h"

namespace tolmira {

namespace {

// A family that the catalogue does not name, from a file somebody edited, is shown all the same.
void Choose(QComboBox *combo, const QString &value) {
  if (combo->findText(value) < 0 && !value.isEmpty())
    combo->addItem(value);
  combo->setCurrentText(value);
}

} // namespace

EffectsPanel::EffectsPanel(ConsoleParts parts, QWidget *parent) : QWidget(parent), m_parts(parts) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);

  const auto caption = [this](const QString &text, const char *look) {
    auto *label = new QLabel(text, this);
    label->setProperty("look", QLatin1String(look));
    return label;
  };
  QLabel *title = caption(tr("Effects and filters"), "caps");
  title->setMinimumHeight(medidas::Heading);
  m_fontes = MakeCombo("ComboFontes", tr("Font of the text"));
  auto *head = new QHBoxLayout;
  head->addWidget(title, 1);
  QLabel *font = caption(tr("Font"), "quiet");
  font->setBuddy(m_fontes); // a screen reader takes the name of a box from the label that belongs to it
  head->addWidget(font);
  m_imagem = MakeCombo("ComboEfeitoImagem", tr("Effect of pictures"));
  m_imagemExtra = MakeCombo("ComboEfeitoImagemExtra", tr("Variant of the picture effect"));
  m_texto = MakeCombo("ComboEfeitoTexto", tr("Effect of the text"));
  m_textoExtra = MakeCombo("ComboEfeitoTextoExtra", tr("Variant of the text effect"));
  m_imagem->addItems(FamiliasDeEfeito(GrupoEfeito::Imagem, DirecaoEfeito::In));
  m_texto->addItems(FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::In));

  auto *combos = new QGridLayout;
  combos->setHorizontalSpacing(medidas::Gap);
  combos->setVerticalSpacing(medidas::Step);
  combos->addLayout(head, 0, 0, 1, 2);
  combos->addWidget(m_fontes, 0, 2);
  const auto named = [combos, &caption](const QString &text, QComboBox *box, int row) {
    QLabel *label = caption(text, "quiet");
    label->setBuddy(box);
    combos->addWidget(label, row, 0);
  };
  named(tr("Picture"), m_imagem, 1);
  combos->addWidget(m_imagem, 1, 1);
  combos->addWidget(m_imagemExtra, 1, 2);
  named(tr("Text"), m_texto, 2);
  combos->addWidget(m_texto, 2, 1);
  combos->addWidget(m_textoExtra, 2, 2);
  combos->setColumnStretch(1, 1);
  combos->setColumnStretch(2, 1);
  column->addLayout(combos);

  auto *filters = new QGridLayout;
  filters->setHorizontalSpacing(medidas::Gap);
  filters->setVerticalSpacing(medidas::Step);
  m_brilho = MakeFilter(filters, {"slider1", tr("Brightness"), 200, QStringLiteral("%")}, 0, 0);
  m_contraste = MakeFilter(filters, {"slider3", tr("Contrast"), 200, QStringLiteral("%")}, 0, 4);
  m_saturacao = MakeFilter(filters, {"slider4", tr("Saturation"), 200, QStringLiteral("%")}, 1, 0);
  m_desfoque = MakeFilter(filters, {"slider5", tr("Blur"), 20, QStringLiteral(" px")}, 1, 4);
  filters->setColumnStretch(1, 1);
  filters->setColumnMinimumWidth(3, medidas::Gap);
  filters->setColumnStretch(5, 1);
  column->addLayout(filters);
  column->addStretch(1);
}

QComboBox *EffectsPanel::MakeCombo(const char *name, const QString &spoken) {
  auto *combo = new QComboBox(this);
  combo->setObjectName(QLatin1String(name));
  combo->setAccessibleName(spoken);
  // A family without variants has no second box; its place stays.
  QSizePolicy policy = combo->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  combo->setSizePolicy(policy);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(6);
  combo->setEnabled(false);
  combo->setToolTip(AindaNao());
  return combo;
}

EffectsPanel::Filter EffectsPanel::MakeFilter(QGridLayout *grid, const Scale &scale, int row, int column) {
  auto *label = new QLabel(scale.caption, this);
  label->setProperty("look", QStringLiteral("quiet"));
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(scale.name));
  slider->setRange(0, scale.most);
  slider->setAccessibleName(scale.caption);
  slider->setEnabled(false);
  slider->setToolTip(AindaNao());
  auto *value = new QLabel(this);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setFixedWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("200%")) + 4);
  grid->addWidget(label, row, column);
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
  const QString &fonte = m_parts.console.estado.TemaAtual.Font_Name;
  m_fontes->setPlaceholderText(fonte);
  m_fontes->setCurrentIndex(m_fontes->findText(fonte));
}

void EffectsPanel::ThemesChanged() {
  const TemaRecord &tema = m_parts.console.estado.TemaAtual;
  ShowFont();
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
    filter.slider->setValue(value);
    filter.value->setText(QString::number(value) + filter.unit);
  };
  set(m_brilho, tema.brightness);
  set(m_contraste, tema.contrast);
  set(m_saturacao, tema.saturate);
  set(m_desfoque, tema.blur);
}

} // namespace tolmira
