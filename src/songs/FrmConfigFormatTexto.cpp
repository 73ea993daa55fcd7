#include "songs/FrmConfigFormatTexto.h"

#include "controls/ui/palette.h"
#include "songs/ui/stanza_preview.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr int LastStyle = 8;
constexpr int Breadth = 460; // px
const QString Sample = QStringLiteral("Sing to the Lord a new song\r\nSing to the Lord, all the earth");

} // namespace

FrmConfigFormatTexto::FrmConfigFormatTexto(const SongEditorDoors &doors, TextFormatDoors formato)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_format(std::move(formato)) {
  setObjectName(QStringLiteral("FrmConfigFormatTexto"));
  setWindowTitle(tr("Format of the text"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  m_preview = new StanzaPreview(m_doors, this);
  column->addWidget(m_preview);
  m_capitals = new QCheckBox(tr("&Capital letters"), this);
  m_capitals->setObjectName(QStringLiteral("ChkMaiusculas"));
  m_capitals->setToolTip(
      tr("Songs are shown in capital letters while this theme is in force; their files stay as they are"));
  column->addWidget(m_capitals);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  auto *caption = new QLabel(tr("St&yle"), this);
  m_style = new QSlider(Qt::Horizontal, this);
  m_style->setObjectName(QStringLiteral("SliderEstilo"));
  m_style->setRange(0, LastStyle);
  m_style->setPageStep(1);
  m_style->setAccessibleName(tr("Style of songs"));
  m_style->setToolTip(tr("Style of songs: 0 and 1 plain, 2 to 6 with a band, 7 and 8 animated"));
  caption->setBuddy(m_style);
  m_styleValue = new QLabel(QString::number(LastStyle), this);
  m_styleValue->setObjectName(QStringLiteral("ValorEstilo"));
  row->addWidget(caption);
  row->addWidget(m_style, 1);
  row->addWidget(m_styleValue);
  column->addLayout(row);
  column->addStretch(1); // the preview keeps its proportions in whatever window

  auto *buttons = new QHBoxLayout;
  buttons->addStretch(1);
  const auto button = [this, buttons](const char *name, const QString &text) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    buttons->addWidget(made);
    return made;
  };
  QPushButton *ok = button("Command1", tr("&OK"));
  ok->setProperty("look", QStringLiteral("main"));
  ok->setToolTip(tr("Takes the options over, also for the song on show (Enter)"));
  QPushButton *cancel = button("Command2", tr("Cancel"));
  cancel->setToolTip(tr("Leaves everything as it was (Esc)"));
  column->addLayout(buttons);

  connect(m_capitals, &QCheckBox::toggled, this, &FrmConfigFormatTexto::ShowSample);
  connect(m_style, &QSlider::valueChanged, this, [this](int value) {
    m_styleValue->setText(QString::number(value));
    ShowSample();
  });
  connect(ok, &QPushButton::clicked, this, &FrmConfigFormatTexto::Command1);
  connect(cancel, &QPushButton::clicked, this, &QWidget::close);
  resize(Breadth, sizeHint().height());
}

void FrmConfigFormatTexto::Open() {
  m_loaded = m_format.le();
  Load(m_loaded);
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_capitals->setFocus();
  ShowSample();
}

void FrmConfigFormatTexto::Refaz() {
  if (!isVisible())
    return;
  const TextFormat chosen = Chosen();
  m_loaded = m_format.le();
  Load(chosen);
  ShowSample();
}

void FrmConfigFormatTexto::Load(const TextFormat &format) {
  m_capitals->setChecked(format.maiusculas);
  m_style->setValue(format.estilo);
  m_styleValue->setText(QString::number(format.estilo));
}

// What was not touched here is as it is in force now.
TextFormat FrmConfigFormatTexto::Chosen() const {
  TextFormat chosen = m_format.le();
  if (m_capitals->isChecked() != m_loaded.maiusculas)
    chosen.maiusculas = m_capitals->isChecked();
  if (m_style->value() != m_loaded.estilo)
    chosen.estilo = m_style->value();
  return chosen;
}

void FrmConfigFormatTexto::ShowSample() {
  const TextFormat chosen = Chosen();
  TemaRecord tema = m_doors.estado.TemaAtual;
  tema.Maiusculas = chosen.maiusculas;
  AjustesTexto ajustes = m_doors.ajustes;
  ajustes.EstiloLouvor = chosen.estilo;
  const SongRoom room = m_doors.sala(tema.Maiusculas ? Sample.toUpper() : Sample, ajustes);
  m_preview->Show(Sample, room.tamanhoBase, tema, ajustes);
}

void FrmConfigFormatTexto::Command1() {
  if (Chosen() != m_format.le() && !m_format.aplica(Chosen()))
    m_doors.prompt.Message(MessageKind::Warning, QStringLiteral("Tolmira"),
                           tr("The options could not be written; they hold until the program ends."));
  close();
}

void FrmConfigFormatTexto::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    Command1();
  else
    QWidget::keyPressEvent(event);
}

void FrmConfigFormatTexto::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

} // namespace tolmira
