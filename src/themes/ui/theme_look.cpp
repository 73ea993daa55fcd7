#include "themes/ui/theme_look.h"

#include "controls/ui/colour_button.h"
#include "controls/ui/font_box.h"
#include "controls/ui/palette.h"
#include "controls/ui/value_slider.h"
#include "display/effects.h"
#include "foundation/text_fields.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace tolmira {

namespace {

constexpr int LargestOffset = 20; // px
constexpr int LargestSpread = 40; // px
constexpr int LargestFilter = 200;
constexpr int LargestBlur = 20;
// Two halves of a caption, a slider and its value each, with a gap between them.
constexpr int Right = 4;
constexpr int Columns = 7;

// A value that the catalogue does not name, from a file somebody edited, is shown all the same.
void Choose(QComboBox *combo, const QString &value) {
  int row = combo->findText(value, Qt::MatchFixedString);
  if (row < 0 && !value.isEmpty()) {
    combo->addItem(value);
    row = combo->count() - 1;
  }
  combo->setCurrentIndex(row);
}

void ShowVariants(QComboBox *combo, GrupoEfeito grupo, const QString &familia, const QString &variante) {
  combo->clear();
  combo->addItems(VariantesDeEfeito(grupo, familia, DirecaoEfeito::In));
  combo->setVisible(combo->count() > 0);
  if (combo->count() > 0)
    Choose(combo, variante);
}

// A variant of the family before means nothing in this one.
QString VariantIn(GrupoEfeito grupo, const QString &familia, const QString &variante) {
  const QStringList variants = VariantesDeEfeito(grupo, familia, DirecaoEfeito::In);
  return variants.isEmpty() || variants.contains(variante) ? variante : QStringLiteral("Random");
}

} // namespace

ThemeLook::ThemeLook(TemaRecord &tema, UserPrompt &prompt, Filters filters, QWidget *parent)
    : QWidget(parent), m_tema(tema), m_prompt(prompt) {
  auto *grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, medidas::Gap, 0);
  grid->setHorizontalSpacing(medidas::Gap);
  grid->setVerticalSpacing(medidas::Step);
  MakeText(grid);
  if (filters == Filters::With)
    MakeFilters(grid);
  MakeEffects(grid);
  grid->setColumnStretch(1, 1);
  grid->setColumnMinimumWidth(Right - 1, medidas::Gap);
  grid->setColumnStretch(Right + 1, 1);
  grid->setRowStretch(grid->rowCount(), 1);
}

void ThemeLook::Heading(QGridLayout *grid, const QString &text) {
  auto *label = new QLabel(text, this);
  label->setProperty("look", QStringLiteral("caps"));
  label->setMinimumHeight(medidas::Heading);
  grid->addWidget(label, grid->rowCount(), 0, 1, Columns);
}

// Made in the order in which Tab goes through them.
void ThemeLook::MakeText(QGridLayout *grid) {
  Heading(grid, tr("Text"));
  int row = grid->rowCount();
  m_fontes = new FontBox(this);
  m_fontes->setObjectName(QStringLiteral("ComboFontes"));
  m_fontes->setAccessibleName(tr("Font of the text"));
  m_fontes->setToolTip(tr("Font of the text"));
  connect(m_fontes, &QComboBox::textActivated, this, [this](const QString &family) {
    m_tema.Font_Name = family;
    emit TextoMudou();
  });
  auto *caption = new QLabel(tr("Font"), this);
  caption->setProperty("look", QStringLiteral("quiet"));
  grid->addWidget(caption, row, 0);
  auto *font = new QHBoxLayout; // names of fonts are long
  font->setSpacing(medidas::Gap);
  font->addWidget(m_fontes, 1);
  font->addWidget(MakeColour("SelectColorsFont", tr("Colour of the text"), &TemaRecord::Font_Cor));
  grid->addLayout(font, row, 1, 1, Columns - 1);
  grid->addWidget(MakeTick("ChkMaiusculas", tr("&Capital letters"), &TemaRecord::Maiusculas, &ThemeLook::TextoMudou),
                  row + 1, 1, 1, Columns - 1);

  const auto pair = [grid](QCheckBox *tick, ColourButton *colour) {
    const int at = grid->rowCount();
    grid->addWidget(tick, at, 0);
    grid->addWidget(colour, at, 1, Qt::AlignLeft);
    return at;
  };
  const QString px = QStringLiteral(" px");
  row = pair(MakeTick("ChkSombra", tr("Sh&adow"), &TemaRecord::FontSombra_Enabled, &ThemeLook::TextoMudou),
             MakeColour("SelectColorsSombra", tr("Colour of the shadow"), &TemaRecord::FontSombra_Cor));
  // Its strength is kept in the file, but no page draws by it.
  AddTextScale(grid, row, Right, {"SliderSombraBlur", tr("Softness"), 0, LargestSpread, px, {}, {}, nullptr},
               &TemaRecord::FontSombra_Blur);
  row = grid->rowCount();
  AddTextScale(grid, row, 0,
               {"SliderSombraRight", tr("To the right"), -LargestOffset, LargestOffset, px, {}, {}, nullptr},
               &TemaRecord::FontSombra_Right);
  AddTextScale(grid, row, Right, {"SliderSombraDown", tr("Down"), -LargestOffset, LargestOffset, px, {}, {}, nullptr},
               &TemaRecord::FontSombra_Down);
  row = pair(MakeTick("ChkBorda", tr("&Outline"), &TemaRecord::FontBorda_Enabled, &ThemeLook::TextoMudou),
             MakeColour("SelectColorsBorda", tr("Colour of the outline"), &TemaRecord::FontBorda_Cor));
  AddTextScale(grid, row, Right, {"SliderBordaEspessura", tr("Thickness"), 0, LargestSpread, px, {}, {}, nullptr},
               &TemaRecord::FontBorda_Espessura);
}

void ThemeLook::MakeFilters(QGridLayout *grid) {
  Heading(grid, tr("Background filters"));
  const auto filter = [this, grid](int row, int column, const char *name, const QString &caption, int most,
                                   const QString &unit, int TemaRecord::*field) {
    AddScale(grid, row, column,
             {name, caption, 0, most, unit, [this, field] { return m_tema.*field; },
              [this, field](int value) { m_tema.*field = value; }, &ThemeLook::FiltrosMudaram});
  };
  const QString percent = QStringLiteral("%");
  const int row = grid->rowCount();
  filter(row, 0, "slider1", tr("Brightness"), LargestFilter, percent, &TemaRecord::brightness);
  filter(row, Right, "slider3", tr("Contrast"), LargestFilter, percent, &TemaRecord::contrast);
  filter(row + 1, 0, "slider4", tr("Saturation"), LargestFilter, percent, &TemaRecord::saturate);
  filter(row + 1, Right, "slider5", tr("Blur"), LargestBlur, QStringLiteral(" px"), &TemaRecord::blur);
}

void ThemeLook::MakeEffects(QGridLayout *grid) {
  Heading(grid, tr("Effects"));
  const auto caption = [this, grid](const QString &text, int row) {
    auto *label = new QLabel(text, this);
    label->setProperty("look", QStringLiteral("quiet"));
    grid->addWidget(label, row, 0);
  };
  int row = grid->rowCount();
  m_imagem = MakeCombo("ComboEfeitoImagem", tr("Effect of pictures"));
  m_imagem->addItems(FamiliasDeEfeito(GrupoEfeito::Imagem, DirecaoEfeito::In));
  m_imagemExtra = MakeCombo("ComboEfeitoImagemExtra", tr("Variant of the picture effect"));
  m_move = MakeTick("ChkMoveImagem", tr("Pictures &move slowly"), &TemaRecord::MoveImagens, &ThemeLook::MovimentoMudou);
  caption(tr("Pictures"), row);
  grid->addWidget(m_imagem, row, 1, 1, 2);
  grid->addWidget(m_imagemExtra, row, Right, 1, 3);
  grid->addWidget(m_move, row + 1, 1, 1, 2);
  row = grid->rowCount();
  m_texto = MakeCombo("ComboEfeitoTexto", tr("Effect by which a text comes"));
  m_texto->addItems(FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::In));
  m_textoExtra = MakeCombo("ComboEfeitoTextoExtra", tr("Variant of the text effect"));
  caption(tr("Text in"), row);
  grid->addWidget(m_texto, row, 1, 1, 2);
  grid->addWidget(m_textoExtra, row, Right, 1, 3);
  row = grid->rowCount();
  m_saida = MakeCombo("ComboEfeitoTextoOut", tr("Effect by which a text goes"));
  m_saida->addItems(FamiliasDeEfeito(GrupoEfeito::Texto, DirecaoEfeito::Out));
  caption(tr("Text out"), row);
  grid->addWidget(m_saida, row, 1, 1, 2);

  connect(m_imagem, &QComboBox::textActivated, this, [this](const QString &familia) {
    m_tema.Efeito_Imagem_Fx = familia;
    m_tema.Efeito_Imagem_FxExtra = VariantIn(GrupoEfeito::Imagem, familia, m_tema.Efeito_Imagem_FxExtra);
    ShowVariants(m_imagemExtra, GrupoEfeito::Imagem, familia, m_tema.Efeito_Imagem_FxExtra);
    emit EfeitoDaImagemMudou();
  });
  connect(m_imagemExtra, &QComboBox::textActivated, this, [this](const QString &variante) {
    m_tema.Efeito_Imagem_FxExtra = variante;
    emit EfeitoDaImagemMudou();
  });
  connect(m_texto, &QComboBox::textActivated, this, [this](const QString &familia) {
    m_tema.Efeito_Texto_Fx = familia;
    m_tema.Efeito_Texto_FxExtra = VariantIn(GrupoEfeito::Texto, familia, m_tema.Efeito_Texto_FxExtra);
    ShowVariants(m_textoExtra, GrupoEfeito::Texto, familia, m_tema.Efeito_Texto_FxExtra);
    emit EntradaMudou();
  });
  connect(m_textoExtra, &QComboBox::textActivated, this, [this](const QString &variante) {
    m_tema.Efeito_Texto_FxExtra = variante;
    emit EntradaMudou();
  });
  connect(m_saida, &QComboBox::textActivated, this, [this](const QString &efeito) {
    m_tema.Efeito_Texto_FxOut = efeito;
    emit SaidaMudou();
  });
}

// Values that a slider cannot stand on (a file somebody edited) are shown as its nearest one and kept until it is
// moved.
void ThemeLook::AddScale(QGridLayout *grid, int row, int column, const Scale &scale) {
  auto *label = new QLabel(scale.caption, this);
  label->setProperty("look", QStringLiteral("quiet"));
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(scale.name));
  slider->setRange(scale.least, scale.most);
  slider->setAccessibleName(scale.caption);
  slider->setToolTip(scale.caption);
  auto *value = new QLabel(this);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("-20 px")) + medidas::Step);
  connect(slider, &ValueSlider::Changed, this, [this, value, scale](int now) {
    value->setText(QString::number(now) + scale.unit);
    scale.write(now);
    emit(this->*scale.changed)();
  });
  m_load.push_back([slider, value, scale] {
    const QSignalBlocker quiet(slider);
    slider->setValue(scale.read());
    value->setText(QString::number(scale.read()) + scale.unit);
  });
  grid->addWidget(label, row, column);
  grid->addWidget(slider, row, column + 1);
  grid->addWidget(value, row, column + 2);
}

void ThemeLook::AddTextScale(QGridLayout *grid, int row, int column, const Scale &scale, QString TemaRecord::*field) {
  Scale whole = scale;
  whole.read = [this, field] { return RoundHalfEven(NumericPrefix(m_tema.*field)); };
  whole.write = [this, field](int value) { m_tema.*field = QString::number(value); };
  whole.changed = &ThemeLook::TextoMudou;
  AddScale(grid, row, column, whole);
}

QCheckBox *ThemeLook::MakeTick(const char *name, const QString &caption, bool TemaRecord::*field,
                               void (ThemeLook::*changed)()) {
  auto *box = new QCheckBox(caption, this);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(QString(caption).remove(u'&'));
  box->setToolTip(box->accessibleName());
  connect(box, &QCheckBox::clicked, this, [this, field, changed](bool on) {
    m_tema.*field = on;
    emit(this->*changed)();
  });
  m_load.push_back([this, box, field] { box->setChecked(m_tema.*field); });
  return box;
}

ColourButton *ThemeLook::MakeColour(const char *name, const QString &spoken, QString TemaRecord::*field) {
  auto *button = new ColourButton(name, spoken, this);
  connect(button, &QPushButton::clicked, this, [this, button, spoken, field] {
    const std::optional<qint32> chosen = m_prompt.PickColour(spoken, button->Colour());
    if (!chosen)
      return;
    button->SetColour(*chosen);
    m_tema.*field = QString::number(*chosen);
    emit TextoMudou();
  });
  m_load.push_back([this, button, field] { button->SetColour(RoundHalfEven(NumericPrefix(m_tema.*field))); });
  return button;
}

QComboBox *ThemeLook::MakeCombo(const char *name, const QString &spoken) {
  auto *combo = new QComboBox(this);
  combo->setObjectName(QLatin1String(name));
  combo->setAccessibleName(spoken);
  combo->setToolTip(spoken);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(8);
  // A family without variants has no second box; its place stays.
  QSizePolicy policy = combo->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  combo->setSizePolicy(policy);
  return combo;
}

void ThemeLook::Load() {
  if (m_fontes->count() == 0)
    m_fontes->CarregaFontes();
  m_fontes->ShowFont(m_tema.Font_Name);
  for (const std::function<void()> &load : m_load)
    load();
  Choose(m_imagem, m_tema.Efeito_Imagem_Fx);
  ShowVariants(m_imagemExtra, GrupoEfeito::Imagem, m_tema.Efeito_Imagem_Fx, m_tema.Efeito_Imagem_FxExtra);
  Choose(m_texto, m_tema.Efeito_Texto_Fx);
  ShowVariants(m_textoExtra, GrupoEfeito::Texto, m_tema.Efeito_Texto_Fx, m_tema.Efeito_Texto_FxExtra);
  Choose(m_saida, m_tema.Efeito_Texto_FxOut);
}

void ThemeLook::SetPictures(bool temImagens) {
  for (QWidget *control :
       {static_cast<QWidget *>(m_imagem), static_cast<QWidget *>(m_imagemExtra), static_cast<QWidget *>(m_move)})
    control->setEnabled(temImagens);
}

} // namespace tolmira
