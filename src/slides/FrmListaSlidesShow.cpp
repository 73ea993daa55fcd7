#include "slides/FrmListaSlidesShow.h"

#include "controls/ui/palette.h"
#include "foundation/trash.h"
#include "slides/show_document.h"
#include "slides/slide_folder.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{560, 420};

} // namespace

FrmListaSlidesShow::FrmListaSlidesShow(const ShowDoors &doors, Editor editor)
    : QWidget(doors.dono, Qt::Dialog), m_doors(doors), m_editor(std::move(editor)) {
  setObjectName(QStringLiteral("FrmListaSlidesShow"));
  setWindowTitle(tr("Slide shows"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_list1 = new QListWidget(this);
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setProperty("look", QStringLiteral("column"));
  m_list1->setAccessibleName(tr("Slide shows"));
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

  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [this, row](const char *name, const QString &text, const QString &tip, auto &&way) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, way);
    return made;
  };
  m_command2 = button("Command2", QString(), tr("Puts the chosen show into the active agenda (Enter)"),
                      [this] { Adiciona(); });
  m_command2->setProperty("look", QStringLiteral("main"));
  button("CmdMostrar", tr("&Show"), tr("Runs the chosen show on the projection (Ctrl+Enter)"), [this] { Exibe(); });
  row->addStretch(1);
  button("CmdNovo", tr("&New…"), tr("Opens the editor on a new show"), [this] {
    if (EditorFechado())
      m_editor.novo();
  });
  button("Command3", tr("&Edit…"), tr("Opens the chosen show in the editor"), [this] { Edita(); });
  button("Command4", tr("&Delete…"), tr("Moves the chosen show's file to the trash"), [this] { Exclui(); });
  column->addLayout(row);
  auto *leave = new QShortcut(Qt::Key_Escape, this);
  connect(leave, &QShortcut::activated, this, &QWidget::close);
  connect(m_list1, &QListWidget::itemDoubleClicked, this, [this] { Adiciona(); });
}

void FrmListaSlidesShow::Open() {
  AtualizaAgenda();
  if (!isVisible()) {
    m_label2->clear();
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  AtualizaLista();
  show();
  raise();
  activateWindow();
  m_list1->setFocus();
}

void FrmListaSlidesShow::AtualizaLista(const QString &nome) {
  const QString selecionado = nome.isEmpty() ? Texto() : nome;
  const QStringList nomes = ListaDeSlideShows(m_doors.app);
  m_list1->clear();
  m_list1->addItems(nomes);
  m_list1->setCurrentRow(static_cast<int>(nomes.indexOf(selecionado)));
}

void FrmListaSlidesShow::AtualizaAgenda() {
  QString title = m_doors.tituloDaAgenda ? m_doors.tituloDaAgenda() : QString();
  m_command2->setText(QStringLiteral("&Include in '") + title.replace(u'&', QStringLiteral("&&")) + u'\'');
}

QString FrmListaSlidesShow::Texto() const {
  const QListWidgetItem *item = m_list1->currentItem();
  return item ? item->text() : QString();
}

QString FrmListaSlidesShow::Path() const { return CaminhoDoSlideShow(m_doors.app, Texto()); }

bool FrmListaSlidesShow::TemSelecao(const QString &semSelecao) {
  if (Texto().isEmpty())
    Diz(semSelecao);
  return !Texto().isEmpty();
}

bool FrmListaSlidesShow::EditorFechado() {
  if (m_editor.aberto())
    Diz(QStringLiteral("First, close the slideshow editing screen."));
  return !m_editor.aberto();
}

void FrmListaSlidesShow::Adiciona() {
  if (!TemSelecao(QStringLiteral("Select the item you want to add to the agenda.")))
    return;
  QString message;
  m_doors.console.PorNaLista(Texto(), TipoSlideShow, Path(), message);
  m_label2->setText(message);
}

void FrmListaSlidesShow::Exibe() {
  if (TemSelecao(QStringLiteral("Select the item you want to add to the agenda.")))
    m_doors.console.ShowEntry(TipoSlideShow, 0, Texto(), Path());
}

void FrmListaSlidesShow::Edita() {
  if (EditorFechado() && TemSelecao(QStringLiteral("Select the Slide Show you want to edit from the list.")))
    m_editor.edita(Path());
}

void FrmListaSlidesShow::Exclui() {
  if (!EditorFechado() || !TemSelecao(QStringLiteral("Select the item you want to delete.")))
    return;
  const QString nome = Texto();
  if (m_doors.prompt.Ask(BoxTitle, QStringLiteral("Confirm the permanent deletion of: ") + nome + u'?',
                         {QStringLiteral("Yes"), QStringLiteral("No")}) != 0)
    return;
  const int row = m_list1->currentRow();
  const QString path = Path();
  if (RemoveFile(path)) {
    m_doors.console.RemoveFromAgendas(TipoSlideShow, nome);
    m_doors.console.RemoveFromAgendas(TipoSlideShow, path); // the agenda may spell its label otherwise
  } else {
    Diz(tr("The file could not be deleted."));
  }
  AtualizaLista();
  m_list1->setCurrentRow(std::min(row, m_list1->count() - 1));
}

void FrmListaSlidesShow::Diz(const QString &text) {
  m_doors.prompt.Message(MessageKind::Information, BoxTitle, text);
}

bool FrmListaSlidesShow::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  switch (key->key()) {
  case Qt::Key_Delete:
    Exclui();
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      key->modifiers().testFlag(Qt::ControlModifier) ? Exibe() : Adiciona();
    return true;
  default:
    return false;
  }
}

// Files may have come or gone while somebody was elsewhere.
void FrmListaSlidesShow::changeEvent(QEvent *event) {
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    AtualizaLista();
  QWidget::changeEvent(event);
}

void FrmListaSlidesShow::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

} // namespace tolmira
