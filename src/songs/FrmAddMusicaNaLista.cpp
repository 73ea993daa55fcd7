#include "songs/FrmAddMusicaNaLista.h"

#include "controls/ui/add_dialog.h"
#include "controls/ui/elided_label.h"
#include "controls/ui/palette.h"
#include "foundation/text_fields.h"
#include "foundation/text_file.h"
#include "foundation/trash.h"
#include "songs/ui/list_musicas.h"
#include "songs/ui/reading_pane.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tolmira {

namespace {

constexpr QSize Tamanho{860, 540};
constexpr int PermanenciaMs = 4000; // of the text that says what was added
constexpr int PacienciaMs = 200;    // a search that takes longer is told of

const QString TituloDaCaixa = QStringLiteral("Tolmira");
const QString NadaSelecionado = QStringLiteral("No item selected");

} // namespace

FrmAddMusicaNaLista::FrmAddMusicaNaLista(SongDoors doors) : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)) {
  setObjectName(QStringLiteral("FrmAddMusicaNaLista"));
  setWindowTitle(tr("Add a song"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  auto *top = new QHBoxLayout;
  top->setSpacing(medidas::Gap);
  m_text1 = new QLineEdit(this);
  m_text1->setObjectName(QStringLiteral("Text1"));
  m_text1->setPlaceholderText(tr("A part of the title, or words of the song"));
  m_text1->setAccessibleName(tr("Find a song"));
  m_text1->setToolTip(tr("Words narrow the list while they are typed"));
  m_text1->setClearButtonEnabled(true);
  m_text1->installEventFilter(this);
  top->addWidget(m_text1, 1);
  m_command1 = new QPushButton(tr("&Add"), this);
  top->addWidget(m_command1);
  column->addLayout(top);

  auto *hints = new QHBoxLayout;
  auto *label23 = new QLabel(QStringLiteral("For hymns from the Harp, type h + the number, e.g., h301."), this);
  label23->setObjectName(QStringLiteral("Label23"));
  label23->setProperty("look", QStringLiteral("quiet"));
  hints->addWidget(label23);
  hints->addStretch(1);
  m_estado = new QLabel(this);
  m_estado->setObjectName(QStringLiteral("LbBusca"));
  m_estado->setProperty("look", QStringLiteral("quiet"));
  hints->addWidget(m_estado);
  column->addLayout(hints);

  auto *halves = new QSplitter(Qt::Horizontal, this);
  halves->setChildrenCollapsible(false);
  halves->setHandleWidth(medidas::Margin);
  column->addWidget(halves, 1);
  m_list = new ListMusicas(m_doors.app, m_doors.clock, halves);
  m_list->setObjectName(QStringLiteral("ListMusicas1"));
  m_list->setAccessibleName(tr("Songs"));
  m_list->setToolTip(tr("Enter adds the song, Ctrl+Enter shows it; it can be dragged to the agenda"));
  m_list->setMinimumWidth(200);

  auto *reading = new QWidget(halves);
  auto *lines = new QVBoxLayout(reading);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(medidas::Step);
  m_selecionado = new ElidedLabel(reading);
  m_selecionado->setObjectName(QStringLiteral("LbSelecionado"));
  m_selecionado->setProperty("look", QStringLiteral("caps"));
  m_selecionado->setTextFormat(Qt::PlainText);
  lines->addWidget(m_selecionado);
  m_leitura = new ReadingPane(reading);
  m_leitura->setObjectName(QStringLiteral("TxtLeitura"));
  m_leitura->setAccessibleName(tr("Words of the selected song"));
  m_leitura->setToolTip(tr("Words of the selected song"));
  lines->addWidget(m_leitura, 1);
  reading->setMinimumWidth(200);
  halves->setStretchFactor(0, 5);
  halves->setStretchFactor(1, 4);

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

  MakeButtons();
  MakeList();
  resize(Tamanho);
  ShowRow();
}

FrmAddMusicaNaLista::~FrmAddMusicaNaLista() = default;

void FrmAddMusicaNaLista::MakeButtons() {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  const auto prepare = [](QPushButton *button, const char *name, const QString &tip) {
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
  };
  const auto button = [this, row, prepare](const char *name, const QString &text, const QString &tip) {
    QPushButton *made = prepare(new QPushButton(text, this), name, tip);
    row->addWidget(made);
    return made;
  };
  prepare(m_command1, "Command1", tr("Adds the chosen song (Enter)"));
  m_command2 = button("Command2", QString(), tr("Puts the chosen song into the active agenda"));
  m_command2->setProperty("look", QStringLiteral("main"));
  m_mostrar = button("CmdMostrar", tr("&Show"), tr("Shows the chosen song on the projection (Ctrl+Enter)"));
  row->addStretch(1);
  QPushButton *web = button("CmdInternet", tr("From the &web…"), tr("Fetches the words of a song from a lyrics site"));
  m_command3 = button("Command3", tr("&Edit…"), tr("Opens the chosen song in the editor"));
  m_command4 = button("Command4", tr("&Delete…"), tr("Moves the chosen song's file to the trash"));
  static_cast<QVBoxLayout *>(layout())->addLayout(row);
  connect(m_command1, &QPushButton::clicked, this, &FrmAddMusicaNaLista::Command1);
  connect(m_command2, &QPushButton::clicked, this, &FrmAddMusicaNaLista::Command2);
  connect(m_command3, &QPushButton::clicked, this, &FrmAddMusicaNaLista::Command3);
  connect(m_command4, &QPushButton::clicked, this, &FrmAddMusicaNaLista::Command4);
  connect(m_mostrar, &QPushButton::clicked, this, &FrmAddMusicaNaLista::Mostra);
  web->setVisible(m_doors.abreBusca != nullptr);
  connect(web, &QPushButton::clicked, this, [this] { m_doors.abreBusca(m_text1->text()); });
  m_timer1 = m_doors.clock.NewTimer([this] {
    m_timer1->Stop();
    m_label2->clear();
  });
  m_timerBusca = m_doors.clock.NewTimer([this] {
    m_timerBusca->Stop();
    m_estado->setText(tr("Searching…"));
  });
  AtualizaAgenda();
}

void FrmAddMusicaNaLista::MakeList() {
  connect(m_text1, &QLineEdit::textChanged, this, [this](const QString &text) {
    m_aSelecionar.clear();
    m_list->Finder().SetTermoBusca(text);
  });
  connect(m_list, &ListMusicas::RowActivated, this, [this](bool ctrl) { ctrl ? Mostra() : AtivaLinha(); });
  connect(m_list, &ListMusicas::RowChanged, this, &FrmAddMusicaNaLista::ShowRow);
  connect(m_list, &ListMusicas::Listed, this, &FrmAddMusicaNaLista::Listado);
  connect(m_list, &ListMusicas::SearchChanged, this, [this] {
    const SongFinder &finder = m_list->Finder();
    if (finder.Buscando() && !finder.Medindo())
      m_timerBusca->Start(PacienciaMs);
    else
      m_timerBusca->Stop();
  });
  connect(m_list, &ListMusicas::Left, this, &QWidget::close);
  connect(m_list, &ListMusicas::LeftUp, this, [this] { m_text1->setFocus(Qt::OtherFocusReason); });
  connect(m_list, &ListMusicas::Typed, this, [this](const QString &text) {
    m_text1->setFocus(Qt::OtherFocusReason);
    text.isEmpty() ? m_text1->backspace() : m_text1->insert(text);
  });
  m_list->OnDrag = [this] { return Arrasta(); };
}

void FrmAddMusicaNaLista::Prepare() {
  ensurePolished();
  m_list->Finder().CarregaTudo(true);
}

void FrmAddMusicaNaLista::Open() {
  AtualizaAgenda();
  if (!isVisible()) {
    const QSignalBlocker quiet(m_text1);
    m_text1->clear();
    m_label2->clear();
    m_doors.posicoes.RestoreFormPosition(*this, false);
    m_list->Finder().SetTermoBusca(QString());
    m_list->Finder().CarregaTudo(true);
  }
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
  m_text1->selectAll();
}

void FrmAddMusicaNaLista::hideEvent(QHideEvent *event) {
  m_aSelecionar.clear();
  m_list->Finder().CancelaBusca();
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmAddMusicaNaLista::AtualizaAgenda() {
  const QString title = m_doors.tituloDaAgenda ? m_doors.tituloDaAgenda() : QString();
  m_command2->setText(IncludeCaption(title));
}

void FrmAddMusicaNaLista::AtualizaLista(const QString &nome) {
  m_aSelecionar = nome;
  m_list->Finder().BuscaDeNovo();
}

void FrmAddMusicaNaLista::Listado() {
  const SongRows &rows = m_list->Finder().List1();
  if (!m_aSelecionar.isEmpty()) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [this](const SongFile *file) { return file->Linha() == m_aSelecionar; });
    const bool whole = m_text1->text().isEmpty();
    const QString wanted = std::exchange(m_aSelecionar, QString());
    if (found != rows.end()) {
      m_list->SelectRow(static_cast<int>(found - rows.begin()));
    } else if (!whole && FileExists(m_doors.app.At(u"\\Lyrics\\") + wanted + u".txt")) {
      m_text1->clear(); // lists the collection, and forgets what was wanted
      m_aSelecionar = wanted;
    }
  }
  ShowState();
}

void FrmAddMusicaNaLista::ShowState() {
  const SongFinder &finder = m_list->Finder();
  const size_t count = finder.List1().size();
  const QString term = finder.TermoBusca();
  m_estado->setText(count == 1 ? tr("1 song") : tr("%1 songs").arg(locale().toString(static_cast<qulonglong>(count))));
  if (term.trimmed().isEmpty())
    m_list->SetEmptyText(tr("There are no songs in the program folder yet."));
  else
    m_list->SetEmptyText(tr("No song has “%1” in its name or in its words.").arg(term));
}

void FrmAddMusicaNaLista::ShowRow() {
  const QString row = m_list->Texto();
  m_selecionado->setText(m_list->Row() < 0 ? NadaSelecionado : row);
  if (m_list->Row() < 0)
    m_leitura->setPlaceholderText(tr("Choose a song to read it here.\n\nDown goes from the box into the list."));
  else if (!m_list->TemCaminho())
    m_leitura->setPlaceholderText(NomeInutilizavel());
  else
    m_leitura->setPlaceholderText(tr("This file is empty."));
  m_leitura->ShowText(m_list->TemCaminho() ? ReadWholeFile(m_list->Caminho()) : QString(),
                      m_list->Finder().TermoDasLinhas());
}

void FrmAddMusicaNaLista::Diz(const QString &text) {
  m_doors.prompt.Message(MessageKind::Information, TituloDaCaixa, text);
}

QString FrmAddMusicaNaLista::NomeInutilizavel() {
  return tr("The name of this file holds characters that the program cannot use. Rename the file first.");
}

bool FrmAddMusicaNaLista::TemLinha(const QString &semLinha) {
  if (m_list->Row() < 0) {
    Diz(semLinha);
    return false;
  }
  if (!m_list->TemCaminho())
    Diz(NomeInutilizavel());
  return m_list->TemCaminho();
}

bool FrmAddMusicaNaLista::TemTexto() {
  if (!TrimAll(ReadWholeFile(m_list->Caminho())).isEmpty())
    return true;
  const int answer = m_doors.prompt.Ask(
      TituloDaCaixa, QStringLiteral("Do you want to download the lyrics for this song from the internet?"),
      {QStringLiteral("Yes"), QStringLiteral("No")});
  if (answer != 0)
    Diz(QStringLiteral("The file is empty."));
  else if (m_doors.abreBusca)
    m_doors.abreBusca(m_list->Texto());
  return false;
}

int FrmAddMusicaNaLista::Tipo() const {
  const QString &path = m_list->Finder().Path();
  const bool hymnal = path.contains(u"\\Cantor", Qt::CaseInsensitive) || path.contains(u"\\Harpa", Qt::CaseInsensitive);
  return hymnal ? 3 : 2;
}

void FrmAddMusicaNaLista::Command1() {
  if (TemLinha(QStringLiteral("First, select the item in the list")))
    AtivaLinha();
}

void FrmAddMusicaNaLista::Command2() {
  if (TemLinha(QStringLiteral("First, select the item in the list.")))
    Adiciona();
}

void FrmAddMusicaNaLista::AtivaLinha() {
  if (TemLinha(QStringLiteral("First, select the item from the list.")))
    Adiciona();
}

void FrmAddMusicaNaLista::Adiciona() {
  const QString row = m_list->Texto();
  const int kind = Tipo();
  if (!TemTexto())
    return;
  QString message;
  m_doors.console.PorNaLista(row, kind, row, message);
  m_label2->setText(message);
  m_timer1->Start(PermanenciaMs);
  m_text1->selectAll(); // the next word that is typed is another song's
}

void FrmAddMusicaNaLista::Mostra() {
  if (!TemLinha(QStringLiteral("First, select the item in the list.")))
    return;
  const QString row = m_list->Texto();
  const QString path = m_list->Caminho(); // another folder may hold a song of the same name
  const int kind = Tipo();
  if (!TemTexto())
    return;
  QWidget *focus = focusWidget();
  m_doors.console.cancelaWMP();
  m_doors.console.ShowEntry(kind, 0, row, path.chopped(4));
  activateWindow();
  if (focus)
    focus->setFocus();
}

void FrmAddMusicaNaLista::Command3() {
  if (!TemLinha(QStringLiteral("First, select the lyrics you want to edit from the list")))
    return;
  const QString path = m_list->Caminho();
  if (!FileExists(path))
    Diz(QStringLiteral("The file does not exist."));
  else if (m_doors.editorAberto && m_doors.editorAberto(path))
    Diz(QStringLiteral("The editing screen for this lyrics is already open."));
  else if (!m_doors.abreEditor || !m_doors.abreEditor(path))
    Diz(QStringLiteral("Item not found or cannot be edited."));
}

void FrmAddMusicaNaLista::Command4() {
  if (!TemLinha(QStringLiteral("First, select the lyrics you want to delete from the list.")))
    return;
  const QString row = m_list->Texto();
  const QString path = m_list->Caminho();
  const int kind = Tipo();
  const SongFile *const file = m_list->Finder().List1().at(static_cast<size_t>(m_list->Row()));
  if (m_doors.prompt.Ask(TituloDaCaixa, QStringLiteral("Do you really want to delete '") + row + u"' ?",
                         {QStringLiteral("Yes"), QStringLiteral("No")}) != 0)
    return;
  if (!RemoveFile(path)) {
    Diz(tr("The file could not be deleted."));
    return;
  }
  m_list->Finder().TiraLinha(file);
  m_doors.console.RemoveFromAgendas(kind, row);
  m_selecionado->setText(NadaSelecionado);
}

std::optional<EntryDrag> FrmAddMusicaNaLista::Arrasta() {
  if (m_list->Row() < 0 || !m_list->TemCaminho() || !TemTexto())
    return std::nullopt;
  return EntryDrag{Tipo(), m_list->Texto(), m_list->Texto()};
}

bool FrmAddMusicaNaLista::eventFilter(QObject *watched, QEvent *event) {
  if (watched != m_text1 || event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  switch (key->key()) {
  case Qt::Key_Down:
    if (m_list->Row() < 0 && !m_list->Finder().List1().empty())
      m_list->SelectRow(0);
    m_list->setFocus(Qt::OtherFocusReason);
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      (key->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier ? Mostra() : Command1();
    return true;
  case Qt::Key_Escape:
    close();
    return true;
  default:
    return false;
  }
}

} // namespace tolmira
