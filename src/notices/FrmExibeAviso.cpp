#include "notices/FrmExibeAviso.h"

#include "controls/ui/palette.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize FirstSize{620, 150};
constexpr int PassesWidth = 64;
constexpr int OlharMs = 400; // between two looks at the screen's state, which has keys of its own here

} // namespace

FrmExibeAviso::FrmExibeAviso(const NoticeDoors &doors, std::function<void()> abreLista,
                             std::function<void()> abreConfig)
    : QDialog(doors.dono), m_doors(doors), m_avisos(doors.store, doors.envia), m_text1(new QLineEdit(this)),
      m_text2(new QLineEdit(this)), m_labelAviso(new QLabel(this)) {
  setObjectName(QStringLiteral("FrmExibeAviso"));
  setWindowTitle(tr("Notices"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  auto *fields = new QHBoxLayout;
  fields->setSpacing(medidas::Gap);
  const auto field = [&](QLineEdit *edit, const char *name, const QString &caption, const QString &tip, int stretch) {
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(QString(caption).remove(u'&'));
    edit->setToolTip(tip);
    auto *label = new QLabel(caption, this);
    label->setBuddy(edit);
    auto *under = new QVBoxLayout;
    under->setSpacing(medidas::Step);
    under->addWidget(label);
    under->addWidget(edit);
    fields->addLayout(under, stretch);
  };
  field(m_text1, "Text1", tr("&Text of the notice"),
        tr("It runs across the projection. Enter sends it; without a text it takes a running notice away"), 1);
  m_text1->setPlaceholderText(tr("A car, a child, a lost key…"));
  m_text1->setClearButtonEnabled(true);
  field(m_text2, "Text2", tr("&Passes"), tr("How many times the text runs across, from 1 to 20"), 0);
  m_text2->setFixedWidth(PassesWidth);
  m_text2->setInputMethodHints(Qt::ImhDigitsOnly);
  column->addLayout(fields);
  m_labelAviso->setObjectName(QStringLiteral("LabelAviso"));
  m_labelAviso->setProperty("look", QStringLiteral("quiet"));
  m_labelAviso->setProperty("state", QStringLiteral("held"));
  m_labelAviso->setAccessibleName(tr("Whether a notice is seen now"));
  column->addWidget(m_labelAviso);
  column->addStretch(1);

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [&](const char *name, const QString &text, const QString &tip, const auto &way) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, way);
    return made;
  };
  auto *send = button("Command1", tr("&Show"), tr("Sends the notice to the projection (Enter)"), [this] { Envia(); });
  send->setProperty("look", QStringLiteral("main"));
  send->setDefault(true);
  button("Command2", tr("Take &away"), tr("Takes a running notice off the projection (Alt+A)"),
         [this] { m_avisos.CancelaAviso(); });
  row->addStretch(1);
  button("CmdLista", tr("&List…"), tr("Ready-made notices"), abreLista);
  button("CmdConfig", tr("L&ook…"), tr("Colours, height and speed of the notices"), abreConfig);
  column->addLayout(row);

  m_olhar.setInterval(OlharMs);
  connect(&m_olhar, &QTimer::timeout, this, [this] { OlhaATela(); });
  connect(m_text2, &QLineEdit::textChanged, this, [this](const QString &text) {
    if (!text.isEmpty())
      LimitaText2();
  });
}

void FrmExibeAviso::Open() {
  if (!isVisible()) {
    m_text1->setText(m_avisos.UltimoTexto());
    m_text2->setText(m_avisos.Vezes());
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  OlhaATela();
  m_olhar.start();
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
  m_text1->selectAll();
  if (m_doors.aberto)
    m_doors.aberto(true);
}

void FrmExibeAviso::OlhaATela() {
  if (m_doors.porQueNaoSeVe)
    m_labelAviso->setText(m_doors.porQueNaoSeVe());
}

void FrmExibeAviso::UsaTexto(const QString &texto) {
  m_text1->setText(texto);
}

void FrmExibeAviso::LimitaText2() {
  const QString limited = LimitaVezes(m_text2->text());
  if (limited != m_text2->text())
    m_text2->setText(limited);
}

void FrmExibeAviso::Envia() {
  LimitaText2();
  m_avisos.ExibeAviso(m_text1->text(), m_text2->text());
  close();
}

void FrmExibeAviso::hideEvent(QHideEvent *event) {
  if (!event->spontaneous()) {
    m_olhar.stop();
    m_doors.posicoes.SaveFormPosition(*this, false);
    if (m_doors.aberto)
      m_doors.aberto(false);
  }
  QDialog::hideEvent(event);
}

} // namespace tolmira
