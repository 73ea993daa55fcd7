#include "slides/ui/document_list.h"

#include "controls/ui/add_dialog.h"
#include "controls/ui/palette.h"
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
#include <algorithm>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{620, 460};
constexpr int StayMs = 4000; // of the text that says what was added

} // namespace

DocumentList::DocumentList(Doors doors, Kind kind)
    : QWidget(doors.owner, Qt::Dialog), m_doors(std::move(doors)), m_kind(std::move(kind)) {
  setObjectName(m_kind.name);
  setWindowTitle(m_kind.title);
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  MakeTop(column);
  MakeList(column);
  MakeButtons(column);
  m_timer1.setSingleShot(true);
  connect(&m_timer1, &QTimer::timeout, m_label2, &QLabel::clear);
}

void DocumentList::MakeTop(QVBoxLayout *column) {
  auto *top = new QHBoxLayout;
  top->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setPlaceholderText(tr("A part of the name"));
  m_text1->setAccessibleName(tr("Find"));
  m_text1->setToolTip(tr("Words narrow the list while they are typed"));
  m_text1->setClearButtonEnabled(true);
  m_text1->installEventFilter(this);
  top->addWidget(m_text1, 1);
  m_quantos = new QLabel(this);
  m_quantos->setObjectName(QStringLiteral("LbQuantos"));
  m_quantos->setProperty("look", QStringLiteral("quiet"));
  top->addWidget(m_quantos);
  column->addLayout(top);
  connect(m_text1, &QLineEdit::textChanged, this, [this] { Mostra(Texto()); });
}

void DocumentList::MakeList(QVBoxLayout *column) {
  m_list1 = new QListWidget(this);
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setProperty("look", QStringLiteral("column"));
  m_list1->setAccessibleName(m_kind.title);
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
  connect(m_list1, &QListWidget::itemDoubleClicked, this, &DocumentList::Adiciona);
}

void DocumentList::MakeButtons(QVBoxLayout *column) {
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
  const auto beside = [this](const std::function<void()> &way) {
    return [this, way] {
      if (EditorFechado())
        way();
    };
  };
  m_command2 =
      button("Command2", QString(), tr("Puts the chosen one into the active agenda (Enter)"), [this] { Adiciona(); });
  m_command2->setProperty("look", QStringLiteral("main"));
  button("CmdMostrar", tr("&Show"), tr("Shows the chosen one on the projection (Ctrl+Enter)"), [this] { Exibe(); });
  row->addStretch(1);
  button("CmdNovo", tr("&New…"), tr("Opens the editor on a new one"), beside(m_kind.create));
  if (m_kind.import)
    button("CmdImportar", tr("I&mport…"), tr("Makes slides of a document's pages"), beside(m_kind.import));
  button("Command3", tr("&Edit…"), tr("Opens the chosen one in the editor"), [this] { Edita(); });
  button("Command4", tr("Dele&te…"), tr("Moves the chosen file to the trash (Del)"), [this] { Exclui(); });
  column->addLayout(row);
}

void DocumentList::Open() {
  AtualizaAgenda();
  if (!isVisible()) {
    m_text1->clear();
    m_label2->clear();
    m_doors.positions.RestoreFormPosition(*this, false);
  }
  AtualizaLista();
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
}

void DocumentList::AtualizaLista(const QString &nome) {
  m_nomes = m_kind.names();
  if (!nome.isEmpty() && !SlidesComPalavras({nome}, m_text1->text()).contains(nome))
    m_text1->clear();
  Mostra(nome.isEmpty() ? Texto() : nome);
}

void DocumentList::Mostra(const QString &selecionado) {
  const QStringList achados = SlidesComPalavras(m_nomes, m_text1->text());
  m_list1->clear();
  m_list1->addItems(achados);
  const qsizetype at = achados.indexOf(selecionado);
  // The only one that is left of several is the one that was meant.
  m_list1->setCurrentRow(at < 0 && achados.size() == 1 ? 0 : static_cast<int>(at));
  m_quantos->setText(m_nomes.isEmpty() ? m_kind.none
                     : achados.size() == 1
                         ? m_kind.one
                         : m_kind.many.arg(locale().toString(static_cast<qlonglong>(achados.size()))));
}

void DocumentList::AtualizaAgenda() {
  QString title = m_doors.agendaTitle ? m_doors.agendaTitle() : QString();
  m_command2->setText(IncludeCaption(title));
}

QString DocumentList::Texto() const {
  const QListWidgetItem *item = m_list1->currentItem();
  return item ? item->text() : QString();
}

bool DocumentList::TemSelecao(const QString &semSelecao) {
  if (Texto().isEmpty())
    Diz(semSelecao);
  return !Texto().isEmpty();
}

bool DocumentList::EditorFechado() {
  const bool aberto = m_kind.editorOpen();
  if (aberto)
    Diz(m_kind.refusal);
  return !aberto;
}

void DocumentList::Adiciona() {
  if (!EditorFechado() || !TemSelecao(m_kind.noSelection.add))
    return;
  QString message;
  m_doors.console.PorNaLista(Texto(), m_kind.number, m_kind.target(Texto()), message);
  m_label2->setText(message);
  m_timer1.start(StayMs);
  m_text1->selectAll();
}

void DocumentList::Exibe() {
  if (!TemSelecao(m_kind.noSelection.add))
    return;
  const QString nome = Texto();
  QWidget *focus = focusWidget();
  m_doors.console.cancelaWMP();
  m_doors.console.ShowEntry(m_kind.number, 0, nome, m_kind.target(nome));
  if (!m_kind.keepsFocus)
    return;
  activateWindow();
  if (focus)
    focus->setFocus();
}

void DocumentList::Edita() {
  if (EditorFechado() && TemSelecao(m_kind.noSelection.edit))
    m_kind.edit(m_kind.path(Texto()));
}

void DocumentList::Exclui() {
  if (!EditorFechado() || !TemSelecao(m_kind.noSelection.remove))
    return;
  const QString nome = Texto();
  if (m_doors.prompt.Ask(BoxTitle, QStringLiteral("Confirm the permanent deletion of: ") + nome + u'?',
                         {QStringLiteral("Yes"), QStringLiteral("No")}) != 0)
    return;
  const int row = m_list1->currentRow();
  if (!RemoveFile(m_kind.path(nome))) {
    Diz(tr("The file could not be deleted."));
    return;
  }
  for (const QString &known : {nome, m_kind.target(nome)}) // an agenda may spell its label otherwise
    m_doors.console.RemoveFromAgendas(m_kind.number, known);
  AtualizaLista();
  m_list1->setCurrentRow(std::min(row, m_list1->count() - 1));
}

void DocumentList::Diz(const QString &text) {
  m_doors.prompt.Message(MessageKind::Information, BoxTitle, text);
}

bool DocumentList::eventFilter(QObject *watched, QEvent *event) {
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
    Exclui();
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      (key->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier ? Exibe() : Adiciona();
    return true;
  default:
    return false;
  }
}

void DocumentList::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

// Files may have come or gone while somebody was elsewhere.
void DocumentList::changeEvent(QEvent *event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    AtualizaLista();
  QWidget::changeEvent(event);
}

void DocumentList::hideEvent(QHideEvent *event) {
  m_doors.positions.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

} // namespace tolmira
