#include "notices/FrmListaAvisos.h"

#include "controls/ui/desk_icon.h"
#include "controls/ui/palette.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tolmira {

namespace {

constexpr QSize FirstSize{620, 420};
constexpr int PictureSize = 48;

} // namespace

FrmListaAvisos::FrmListaAvisos(const NoticeDoors &doors, std::function<void(const QString &)> usa)
    : QDialog(doors.dono), m_doors(doors), m_usa(std::move(usa)), m_avisos(doors.store.App()),
      m_list1(new QListWidget(this)), m_picVazia(Vazia()) {
  setObjectName(QStringLiteral("FrmListaAvisos"));
  setWindowTitle(tr("Ready-made notices"));
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  m_list1->setObjectName(QStringLiteral("List1"));
  m_list1->setProperty("look", QStringLiteral("column"));
  m_list1->setAccessibleName(windowTitle());
  m_list1->setToolTip(tr("Enter uses the notice, F2 edits it, Del deletes it, Ins adds one"));
  m_list1->installEventFilter(this);
  column->addWidget(m_picVazia, 1);
  column->addWidget(m_list1, 1);
  MakeButtons(column);
  connect(m_list1, &QListWidget::itemDoubleClicked, this, &FrmListaAvisos::Usa);
}

QWidget *FrmListaAvisos::Vazia() {
  auto *area = new QWidget(this);
  area->setObjectName(QStringLiteral("PicListaVazia"));
  auto *column = new QVBoxLayout(area);
  column->setSpacing(medidas::Margin);
  column->addStretch(1);
  auto *picture = new QLabel(area);
  picture->setPixmap(DeskIcon(QLatin1String("notices"), cores::Quiet).pixmap(PictureSize, PictureSize));
  column->addWidget(picture, 0, Qt::AlignHCenter);
  auto *text = new QLabel(tr("There are no ready-made notices yet."), area);
  text->setProperty("look", QStringLiteral("quiet"));
  column->addWidget(text, 0, Qt::AlignHCenter);
  auto *add = m_add = new QPushButton(tr("Add new warning"), area);
  add->setObjectName(QStringLiteral("Command7"));
  add->setToolTip(tr("Adds the first notice"));
  column->addWidget(add, 0, Qt::AlignHCenter);
  column->addStretch(1);
  connect(add, &QPushButton::clicked, this, &FrmListaAvisos::Novo);
  return area;
}

void FrmListaAvisos::MakeButtons(QBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto button = [&](const char *name, const QString &text, const QString &tip, void (FrmListaAvisos::*way)()) {
    auto *made = new QPushButton(text, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    connect(made, &QPushButton::clicked, this, way);
    return made;
  };
  auto *use =
      button("Command1", tr("&Use"), tr("Takes the chosen notice to where it is sent (Enter)"), &FrmListaAvisos::Usa);
  use->setProperty("look", QStringLiteral("main"));
  use->setDefault(true);
  row->addStretch(1);
  button("Command5", tr("Add &new warning"), tr("Adds a notice at the end of the list (Ins)"), &FrmListaAvisos::Novo);
  button("Command6", tr("&Edit…"), tr("Changes the chosen notice (F2)"), &FrmListaAvisos::Edita);
  button("Command3", tr("&Delete"), tr("Deletes the chosen notice (Del)"), &FrmListaAvisos::Exclui);
  button("Command4", tr("Delete &all…"), tr("Deletes all notices of the list"), &FrmListaAvisos::ExcluiTodos);
  column->addLayout(row);
}

void FrmListaAvisos::Open() {
  if (!isVisible()) {
    m_avisos.ListarAvisos();
    Mostra(-1);
    m_doors.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  if (m_list1->isVisible())
    m_list1->setFocus();
  else
    m_add->setFocus();
}

void FrmListaAvisos::Mostra(int selecionado) {
  m_list1->clear();
  constexpr qsizetype LongestTip = 300;
  for (const QString &aviso : m_avisos.Avisos()) {
    auto *item = new QListWidgetItem(aviso, m_list1);
    item->setToolTip(aviso.left(LongestTip).toHtmlEscaped());
  }
  m_list1->setCurrentRow(selecionado);
  const bool empty = m_avisos.Avisos().isEmpty();
  m_picVazia->setVisible(empty);
  m_list1->setVisible(!empty);
}

int FrmListaAvisos::Selecionado(const QString &listaVazia, const QString &semSelecao) {
  if (m_avisos.Avisos().isEmpty())
    Diz(listaVazia);
  else if (m_list1->currentRow() < 0)
    Diz(semSelecao);
  return m_list1->currentRow();
}

void FrmListaAvisos::Usa() {
  const int row =
      Selecionado(QStringLiteral("There are no warnings in the list.\n\nIf you want to add a new warning to "
                                 "the list, click 'Add new warning'."),
                  QStringLiteral("First, select a warning from the warning list."));
  if (row < 0)
    return;
  const QString texto = m_avisos.Avisos().at(row);
  close();
  m_usa(texto);
}

void FrmListaAvisos::Novo() {
  const auto aviso =
      m_doors.prompt.AskText(QStringLiteral("New Warning"), QStringLiteral("Enter the new warning"), QString());
  if (aviso && !aviso->trimmed().isEmpty())
    Confirma(m_avisos.Acrescenta(*aviso), m_list1->count());
}

void FrmListaAvisos::Edita() {
  const int row = Selecionado(QStringLiteral("There are no notices in the list."),
                              QStringLiteral("First, select the warning you want to edit"));
  if (row < 0)
    return;
  const auto aviso =
      m_doors.prompt.AskText(QStringLiteral("Avisos"), QStringLiteral("Edit Notice"), m_avisos.Avisos().at(row));
  if (aviso && !aviso->trimmed().isEmpty())
    Confirma(m_avisos.Troca(row, *aviso), row);
}

void FrmListaAvisos::Exclui() {
  const int row = Selecionado(QStringLiteral("The warning list is empty."),
                              QStringLiteral("First, select the warning you want to delete."));
  if (row >= 0)
    Confirma(m_avisos.Exclui(row), std::min(row, m_list1->count() - 2));
}

void FrmListaAvisos::ExcluiTodos() {
  if (m_avisos.Avisos().isEmpty())
    Diz(QStringLiteral("The warning list is already empty"));
  else if (m_doors.prompt.Ask(QStringLiteral("Tolmira"),
                              QStringLiteral("Do you want to delete all warnings from the list?"),
                              {QStringLiteral("Yes"), QStringLiteral("No")}) == 0)
    Confirma(m_avisos.ExcluiTodos(), -1);
}

void FrmListaAvisos::Confirma(bool gravada, int selecionado) {
  if (gravada)
    Mostra(selecionado);
  else
    Diz(tr("The list of notices could not be saved. It stays as it was."));
}

void FrmListaAvisos::Diz(const QString &texto) {
  m_doors.prompt.Message(MessageKind::Information, QStringLiteral("Tolmira"), texto);
}

bool FrmListaAvisos::eventFilter(QObject *watched, QEvent *event) {
  const auto *key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event) : nullptr;
  if (!key || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) // with others these keys copy and paste
    return QDialog::eventFilter(watched, event);
  switch (key->key()) {
  case Qt::Key_Insert:
    Novo();
    return true;
  case Qt::Key_F2:
    Edita();
    return true;
  case Qt::Key_Delete:
    Exclui();
    return true;
  default:
    return false;
  }
}

void FrmListaAvisos::hideEvent(QHideEvent *event) {
  if (!event->spontaneous())
    m_doors.posicoes.SaveFormPosition(*this, false);
  QDialog::hideEvent(event);
}

} // namespace tolmira
