#include "bible/FrmAddBibliaNaLista.h"

#include "bible/reference_entry.h"
#include "bible/ui/dialog_keys.h"
#include "bible/ui/reference_box.h"
#include "controls/ui/add_dialog.h"
#include "controls/ui/palette.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr int Largura = 460;         // px
constexpr int LinhasDoVersiculo = 4; // room for most verses; a longer one is cut at the box's lower edge
constexpr int PermanenciaMs = 4000;  // of the text that says what was added

} // namespace

FrmAddBibliaNaLista::FrmAddBibliaNaLista(BibleDoors doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)), m_ctrlEnter(m_doors.store) {
  setObjectName(QStringLiteral("FrmAddBibliaNaLista"));
  setWindowTitle(tr("Add a Bible passage"));

  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  m_text2 = new ReferenceBox(EntryPlace::AddDialog, this);
  m_text2->setObjectName(QStringLiteral("Text2"));
  m_text2->setPlaceholderText(tr("Book, chapter and verse: joh 3 16"));
  m_text2->setAccessibleName(tr("Bible reference"));
  m_text2->setToolTip(tr("A few letters of the book, chapter and verse"));
  column->addWidget(m_text2);

  m_verse = new QLabel(this);
  m_verse->setObjectName(QStringLiteral("LbVersiculo"));
  m_verse->setProperty("look", QStringLiteral("quiet"));
  m_verse->setTextFormat(Qt::PlainText);
  m_verse->setWordWrap(true);
  m_verse->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  m_verse->setFixedHeight(m_verse->fontMetrics().lineSpacing() * LinhasDoVersiculo);
  m_verse->setAccessibleName(tr("Text of the verse"));
  column->addWidget(m_verse);

  auto *buttons = new QHBoxLayout;
  buttons->setSpacing(medidas::Gap);
  const auto button = [this, buttons](const char *name, const QString &text, const QString &tip) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    buttons->addWidget(made);
    return made;
  };
  m_command1 = button("Command1", tr("&Add to the agenda"), tr("Puts the reference into the agenda"));
  m_command3 = button("Command3", tr("&Show"), tr("Shows the passage on the projection"));
  buttons->addStretch(1);
  QPushButton *browse = button("CmdNavegador", tr("&Browse…"), tr("Choose from books, chapters and verses"));
  QPushButton *search = button("CmdBusca", tr("S&earch…"), tr("Find verses by their words"));
  column->addLayout(buttons);

  m_hint = new QLabel(this);
  m_hint->setObjectName(QStringLiteral("LbCtrlEnter"));
  m_hint->setProperty("look", QStringLiteral("quiet"));
  auto *customise = new QLabel(QStringLiteral("Ctrl+Alt: Customize"), this);
  customise->setObjectName(QStringLiteral("LbDicaCtrlAlt"));
  customise->setProperty("look", QStringLiteral("quiet"));
  customise->setToolTip(tr("Lets Enter and Ctrl+Enter change places"));
  auto *hints = new QHBoxLayout;
  hints->addWidget(m_hint);
  hints->addStretch(1);
  hints->addWidget(customise);
  column->addLayout(hints);

  m_label2 = NewAddedLabel(this);
  column->addWidget(m_label2);
  column->addStretch(1);

  m_timer1 = m_doors.clock.NewTimer([this] {
    m_timer1->Stop();
    m_label2->clear();
  });
  connect(m_text2, &ReferenceBox::Submitted, this,
          [this](bool ctrl) { m_ctrlEnter.EnterShows(ctrl) ? Command3() : Command1(); });
  connect(m_text2, &ReferenceBox::CtrlAltPressed, this, [this] {
    m_ctrlEnter.Toggle();
    ShowHint();
  });
  connect(m_text2, &ReferenceBox::Left, this, &QWidget::close);
  connect(m_text2, &QLineEdit::textChanged, this, &FrmAddBibliaNaLista::ShowVerse);
  connect(m_command1, &QPushButton::clicked, this, &FrmAddBibliaNaLista::Command1);
  connect(m_command3, &QPushButton::clicked, this, &FrmAddBibliaNaLista::Command3);
  connect(browse, &QPushButton::clicked, this, &FrmAddBibliaNaLista::BrowserWanted);
  connect(search, &QPushButton::clicked, this, &FrmAddBibliaNaLista::SearchWanted);
  resize(Largura, sizeHint().height());
}

void FrmAddBibliaNaLista::Open() {
  ShowHint();
  ShowVerse();
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_text2->setFocus();
  m_text2->selectAll();
}

void FrmAddBibliaNaLista::keyPressEvent(QKeyEvent *event) {
  if (!PressedInDialog(*this, *event))
    QWidget::keyPressEvent(event);
}

void FrmAddBibliaNaLista::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmAddBibliaNaLista::changeEvent(QEvent *event) {
  // The rule of Enter may have been flipped elsewhere meanwhile.
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    ShowHint();
  QWidget::changeEvent(event);
}

void FrmAddBibliaNaLista::ShowHint() {
  m_hint->setText(m_ctrlEnter.Hint());
}

void FrmAddBibliaNaLista::ShowVerse() {
  QString reference = NormalizeReference(m_text2->text());
  m_verse->setText(TextoDoVersiculo(m_doors.biblia.GetVerse(reference)));
}

QString FrmAddBibliaNaLista::TypedReference() {
  QString reference = NormalizeReference(m_text2->text());
  return m_doors.biblia.GetVerse(reference).isEmpty() ? QString() : reference;
}

void FrmAddBibliaNaLista::Command1() {
  const QString reference = TypedReference();
  if (reference.isEmpty())
    return;
  QString message;
  m_doors.console.PorNaLista(reference, 1, reference, message);
  m_label2->setText(message);
  m_text2->clear();
  m_text2->setFocus();
  m_timer1->Start(PermanenciaMs);
}

void FrmAddBibliaNaLista::Command3() {
  const QString reference = TypedReference();
  if (reference.isEmpty())
    return;
  m_text2->clear();
  m_doors.console.cancelaWMP();
  m_doors.console.exibirPassagem(reference);
  activateWindow();
  m_text2->setFocus();
}

} // namespace tolmira
