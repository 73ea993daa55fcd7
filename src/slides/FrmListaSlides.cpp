#include "slides/FrmListaSlides.h"

#include "controls/ui/palette.h"
#include "foundation/text_file.h"
#include "foundation/trash.h"
#include "slides/slide_folder.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr int Kind = 5; // of an agenda entry
constexpr QSize FirstSize{620, 460};
constexpr int StayMs = 4000; // of the text that says what was added

} // namespace

FrmListaSlides::FrmListaSlides(const SlideDoors &doors, const EstadoSlides &estado, Editor editor)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_estado(estado), m_editor(std::move(editor)) {
  setObjectName(QStringLiteral("FrmListaSlides"));
  setWindowTitle(tr("Slides"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  auto *top = new QHBoxLayout;
  top->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setPlaceholderText(tr("A part of the name"));
  m_text1->setAccessibleName(tr("Find slides"));
  m_text1->setToolTip(tr("Words narrow the list while they are typed"));
  m_text1->setClearButtonEnabled(true);
  m_text1->installEventFilter(this);
  top->addWidget(m_text1, 1);
  m_quantos = new QLabel(this);
  m_quantos->setObjectName(QStringLiteral("LbQuantos"));
  m_quantos->setProperty("look", QStringLiteral("quiet"));
  top->addWidget(m_quantos);
  column->addLayout(top);
  m_list1 = new QListWidget(this);
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setProperty("look", QStringLiteral("column"));
  m_list1->setAccessibleName(tr("Slides"));
  m_list1->setToolTip(tr("Enter adds to the agenda, Ctrl+Enter shows"));
  m_list1->setUniformItemSizes(true);
  m_list1->installEventFilter(this);
  column->addWidget(m_list1, 1);
  m_label2 = new QLabel(this);
  m_label2->setObjectName(QStringLiteral("Label2"));
  m_label2->setTextFormat(Qt::PlainText);
  m_label2->setAccessibleName(tr("What was added last"));
  auto *keys = new QLabel(tr("Enter adds, Ctrl+Enter shows"), this);
  keys->setProperty("look", QStringLiteral("quiet"));
  auto *messages = new QHBoxLayout;
  messages->addWidget(m_label2, 1);
  messages->addWidget(keys);
  column->addLayout(messages);
  MakeButtons(column);

  connect(m_text1, &QLineEdit::textChanged, this, [this] { Mostra(Texto()); });
  connect(m_list1, &QListWidget::itemDoubleClicked, this, &FrmListaSlides::Command2);
  m_timer1 = m_doors.clock.NewTimer([this] {
    m_timer1->Stop();
    m_label2->clear();
  });
}

FrmListaSlides::~FrmListaSlides() = default;

void FrmListaSlides::MakeButtons(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [this, row](const char *name, const QString &text, const QString &tip,
                                  const std::function<void()> &way) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, way);
    return made;
  };
  m_command2 = button("Command2", QString(), tr("Puts the chosen slides into the active agenda (Enter)"),
                      [this] { Command2(); });
  m_command2->setProperty("look", QStringLiteral("main"));
  button("CmdMostrar", tr("&Show"), tr("Shows the chosen slides on the projection (Ctrl+Enter)"), [this] { Exibe(); });
  row->addStretch(1);
  button("CmdNovo", tr("&New…"), tr("Opens the editor on new slides"), [this] {
    if (EditorFechado())
      m_editor.novo();
  });
  if (m_doors.importa)
    button("CmdImportar", tr("I&mport…"), tr("Makes slides of a document's pages"), [this] {
      if (EditorFechado())
        m_editor.importa();
    });
  button("Command3", tr("&Edit…"), tr("Opens the chosen slides in the editor"), [this] { Command3(); });
  button("Command4", tr("&Delete…"), tr("Moves the chosen file to the trash"), [this] { Command4(); });
  column->addLayout(row);
}

void FrmListaSlides::Open() {
  AtualizaAgenda();
  if (!isVisible()) {
    m_text1->clear();
    m_label2->clear();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  AtualizaLista();
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
}

void FrmListaSlides::AtualizaLista(const QString &nome) {
  m_nomes = ListaDeSlides(m_doors.store.App());
  if (!nome.isEmpty() && !SlidesComPalavras({nome}, m_text1->text()).contains(nome))
    m_text1->clear();
  Mostra(nome.isEmpty() ? Texto() : nome);
}

void FrmListaSlides::Mostra(const QString &selecionado) {
  const QStringList achados = SlidesComPalavras(m_nomes, m_text1->text());
  m_list1->clear();
  m_list1->addItems(achados);
  const qsizetype at = achados.indexOf(selecionado);
  // The only one that is left is the one that was meant.
  m_list1->setCurrentRow(at < 0 && achados.size() == 1 ? 0 : static_cast<int>(at));
  m_quantos->setText(m_nomes.isEmpty() ? tr("There are no slides yet.")
                     : achados.size() == 1
                         ? tr("1 document")
                         : tr("%1 documents").arg(locale().toString(static_cast<qlonglong>(achados.size()))));
}

void FrmListaSlides::AtualizaAgenda() {
  QString title = m_doors.tituloDaAgenda ? m_doors.tituloDaAgenda() : QString();
  m_command2->setText(QStringLiteral("&Include in '") + title.replace(u'&', QStringLiteral("&&")) + u'\'');
}

QString FrmListaSlides::Texto() const {
  const QListWidgetItem *item = m_list1->currentItem();
  return item ? item->text() : QString();
}

bool FrmListaSlides::TemSelecao() {
  if (Texto().isEmpty())
    Diz(QStringLiteral("Select the slide you want to edit from the list."));
  return !Texto().isEmpty();
}

bool FrmListaSlides::EditorFechado() {
  const bool aberto = m_estado.editorAberto == u"true";
  if (aberto)
    Diz(QStringLiteral("First, close the slide editing screen."));
  return !aberto;
}

void FrmListaSlides::Command2() {
  if (!EditorFechado() || !TemSelecao())
    return;
  QString message;
  m_doors.console.PorNaLista(Texto(), Kind, Texto() + u".sld", message);
  m_label2->setText(message);
  m_timer1->Start(StayMs);
  m_text1->selectAll();
}

void FrmListaSlides::Exibe() {
  if (!TemSelecao())
    return;
  const QString nome = Texto();
  QWidget *focus = focusWidget();
  m_doors.console.cancelaWMP();
  m_doors.console.ShowEntry(Kind, 0, nome, nome + u".sld");
  activateWindow();
  if (focus)
    focus->setFocus();
}

void FrmListaSlides::Command3() {
  if (!TemSelecao() || !EditorFechado())
    return;
  m_editor.edita(CaminhoDoSlide(m_doors.store.App(), Texto()));
}

void FrmListaSlides::Command4() {
  if (!TemSelecao() || !EditorFechado())
    return;
  const QString nome = Texto();
  if (m_doors.prompt.Ask(BoxTitle, QStringLiteral("Confirm the permanent deletion of: ") + nome + u'?',
                         {QStringLiteral("Yes"), QStringLiteral("No")}) != 0)
    return;
  const int row = m_list1->currentRow();
  if (!RemoveFile(CaminhoDoSlide(m_doors.store.App(), nome))) {
    Diz(tr("The file could not be deleted."));
    return;
  }
  m_doors.console.RemoveFromAgendas(Kind, nome);
  AtualizaLista();
  m_list1->setCurrentRow(std::min(row, m_list1->count() - 1));
}

void FrmListaSlides::Diz(const QString &text) {
  m_doors.prompt.Message(MessageKind::Information, BoxTitle, text);
}

bool FrmListaSlides::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  const bool list = watched == m_list1;
  switch (key->key()) {
  case Qt::Key_Down:
    if (list)
      return false;
    if (m_list1->currentRow() < 0)
      m_list1->setCurrentRow(0);
    m_list1->setFocus(Qt::OtherFocusReason);
    return true;
  case Qt::Key_Up:
    if (!list || m_list1->currentRow() > 0)
      return false;
    m_text1->setFocus(Qt::OtherFocusReason);
    return true;
  case Qt::Key_Delete:
    if (!list)
      return false;
    Command4();
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      (key->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier ? Exibe() : Command2();
    return true;
  case Qt::Key_Escape:
    close();
    return true;
  default:
    return false;
  }
}

// Files may have come or gone while somebody was elsewhere.
void FrmListaSlides::changeEvent(QEvent *event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    AtualizaLista();
  QWidget::changeEvent(event);
}

void FrmListaSlides::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

} // namespace tolmira
