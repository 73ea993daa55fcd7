#include "slides/ui/slide_fields.h"

#include "controls/ui/icon_button.h"
#include "controls/ui/palette.h"
#include "controls/ui/take_text.h"
#include "controls/ui/value_slider.h"
#include "slides/slide_editor.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr int MostFontSize = 20; // per cent of the page's width
constexpr int LeastSpacing = 10; // tenths of a line; the preview reads two digits
constexpr int MostSpacing = 30;
constexpr qint16 Alinhamentos[] = {0, AlinhamentoCentrado};

QString ForBox(QString texto) {
  return texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

SlideFields::SlideFields(SlideEditor &editor, QWidget *parent) : QWidget(parent), m_editor(editor) {
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(medidas::Step);
  MakeTexts(column);
  MakeLayout(column);
}

void SlideFields::MakeTexts(QVBoxLayout *column) {
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setMaxLength(MaiorTextoDeSlide);
  m_text1->setPlaceholderText(tr("Title"));
  m_text1->setAccessibleName(tr("Title of the slide"));
  m_text1->setToolTip(tr("Title of the slide, one line"));
  m_text1->installEventFilter(this);
  m_text2 = new QPlainTextEdit(this);
  m_text2->setObjectName(QStringLiteral("Text2"));
  m_text2->setUndoRedoEnabled(false); // the document has a history of its own
  m_text2->setTabChangesFocus(true);
  m_text2->setPlaceholderText(tr("Text"));
  m_text2->setAccessibleName(tr("Text of the slide"));
  m_text2->setToolTip(tr("Text of the slide"));
  m_text2->setMinimumHeight(48);
  m_text2->installEventFilter(this);
  column->addWidget(m_text1);
  column->addWidget(m_text2, 1);
  connect(m_text1, &QLineEdit::textChanged, this, [this](const QString &titulo) {
    if (m_loading)
      return;
    m_editor.DefineTitulo(titulo);
    emit Mudou();
  });
  connect(m_text2, &QPlainTextEdit::textChanged, this, &SlideFields::TextTyped);
}

void SlideFields::TextTyped() {
  if (m_loading || m_editor.Indice() == 0)
    return;
  const QString typed = TypedText(*m_text2);
  m_editor.DefineTexto(typed);
  emit Mudou();
  const QString kept = ForBox(m_editor.Documento().Em(m_editor.Indice()).Texto);
  if (kept == typed)
    return;
  m_loading = true;
  TakeText(m_text2, kept);
  m_loading = false;
  emit NaoCoube();
}

ValueSlider *SlideFields::MakeScale(QGridLayout *grid, int row, const char *name, const QString &caption, int least,
                                    int most, QLabel *&value) {
  auto *label = new QLabel(caption, this);
  label->setProperty("look", QStringLiteral("quiet"));
  auto *slider = new ValueSlider(this);
  slider->setObjectName(QLatin1String(name));
  slider->setRange(least, most);
  slider->setAccessibleName(caption);
  slider->setToolTip(caption);
  value = new QLabel(this);
  value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("100%")) + medidas::Step);
  grid->addWidget(label, row, 0);
  grid->addWidget(slider, row, 1);
  grid->addWidget(value, row, 2);
  return slider;
}

void SlideFields::MakeLayout(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_check1 = new QCheckBox(tr("S&how text"), this);
  m_check1->setObjectName(QStringLiteral("Check1"));
  m_check1->setAccessibleName(tr("Show text"));
  m_check1->setToolTip(tr("Shows title and text over the picture"));
  row->addWidget(m_check1);
  row->addStretch(1);
  auto *group = new QButtonGroup(this);
  const QString spoken[] = {tr("Text to the left"), tr("Text centred")};
  const char *const drawings[] = {"align-left", "align-center"};
  for (int i = 0; i < 2; ++i) {
    m_alinhar[i] = NewIconButton(QStringLiteral("BtAlinhar%1").arg(Alinhamentos[i]), drawings[i], spoken[i], this);
    m_alinhar[i]->setCheckable(true);
    group->addButton(m_alinhar[i]);
    row->addWidget(m_alinhar[i]);
    connect(m_alinhar[i], &QPushButton::clicked, this, [this, i] {
      m_editor.DefineAlinhamento(Alinhamentos[i]);
      emit Mudou();
    });
  }
  column->addLayout(row);
  auto *grid = new QGridLayout;
  grid->setHorizontalSpacing(medidas::Gap);
  grid->setVerticalSpacing(0);
  m_sliderFontSize = MakeScale(grid, 0, "sliderFontSize", tr("Text size"), 1, MostFontSize, m_valorFontSize);
  m_slider5 = MakeScale(grid, 1, "slider5", tr("Line height"), LeastSpacing, MostSpacing, m_valor5);
  grid->setColumnStretch(1, 1);
  column->addLayout(grid);

  connect(m_check1, &QCheckBox::clicked, this, [this](bool on) {
    m_editor.DefineIncluirTexto(on);
    emit Mudou();
  });
  connect(m_sliderFontSize, &ValueSlider::Changed, this, [this](int value) {
    if (m_loading)
      return;
    m_editor.DefineFontSize(static_cast<qint16>(value));
    emit Mudou();
  });
  connect(m_slider5, &ValueSlider::Changed, this, [this](int value) {
    if (m_loading)
      return;
    m_editor.DefineEspacamento(static_cast<qint16>(value));
    emit Mudou();
  });
}

void SlideFields::Load() {
  m_loading = true;
  const bool tem = m_editor.Indice() > 0;
  const Slide slide = tem ? m_editor.Documento().Em(m_editor.Indice()) : Slide();
  TakeText(m_text1, slide.Titulo);
  TakeText(m_text2, ForBox(slide.Texto));
  m_check1->setChecked(slide.incluirTexto == 1);
  m_alinhar[slide.Alinhamento == AlinhamentoCentrado ? 1 : 0]->setChecked(true);
  const QSignalBlocker quietSize(m_sliderFontSize);
  const QSignalBlocker quietSpacing(m_slider5);
  m_sliderFontSize->setValue(slide.FontSize);
  m_slider5->setValue(slide.Espacamento);
  setEnabled(tem);
  m_loading = false;
  ShowValues();
}

void SlideFields::ShowValues() {
  const Slide slide = m_editor.Indice() > 0 ? m_editor.Documento().Em(m_editor.Indice()) : Slide();
  m_valorFontSize->setText(QString::number(slide.FontSize) + u'%');
  m_valor5->setText(QString::number(slide.Espacamento / 10.0, 'f', 1));
}

void SlideFields::FocusTitle() {
  m_text1->setFocus();
}

// Undo is the document's, not that of one box.
bool SlideFields::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
      event->ignore();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

} // namespace tolmira
