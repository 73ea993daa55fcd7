#include "songs/FrmBusca.h"

#include "controls/ui/palette.h"
#include "controls/ui/take_text.h"
#include "controls/ui/work_strip.h"
#include "songs/song_text.h"
#include "songs/ui/result_list.h"
#include "songs/ui/stanza_preview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace tolmira {

namespace {

constexpr QSize FirstSize{1000, 620};
constexpr int LeastHeight = 420;
constexpr int LeastLyricsWidth = 240;
constexpr int PreviewMs = 120; // after a key; a burst of keys is looked at once

template <class Control> Control *Named(Control *control, const char *name, const QString &spoken, const QString &tip) {
  control->setObjectName(QLatin1String(name));
  control->setAccessibleName(spoken);
  control->setToolTip(tip);
  return control;
}

QPushButton *Button(QWidget *parent, const char *name, const QString &caption, const QString &tip) {
  auto *button = new QPushButton(caption, parent);
  button->setObjectName(QLatin1String(name));
  button->setToolTip(tip);
  return button;
}

} // namespace

FrmBusca::FrmBusca(LyricsDoors doors)
    : QWidget(doors.editor.dono, Qt::Window), m_doors(std::move(doors)), m_busca(m_doors.busca) {
  setObjectName(QStringLiteral("FrmBusca"));
  setWindowTitle(tr("Lyrics from the web"));
  setMinimumHeight(LeastHeight); // the breadth follows from what stands in the rows
  resize(FirstSize);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);
  MakeSearch(column);
  auto *desk = new QSplitter(Qt::Horizontal, this);
  desk->setChildrenCollapsible(false);
  desk->setHandleWidth(medidas::Margin);
  desk->addWidget(MakeRows());
  desk->addWidget(MakeBoxes());
  desk->setStretchFactor(0, 2);
  desk->setStretchFactor(1, 5);
  desk->setSizes({290, 690});
  column->addWidget(desk, 1);
  MakeButtons(column);

  m_timerPreview = m_doors.editor.clock.NewTimer([this] {
    m_timerPreview->Stop();
    ShowPreview();
  });
  m_busca.AoListar = [this] { ShowRows(); };
  m_busca.AoAbrir = [this] { ShowLyrics(); };
  m_busca.AoTrabalhar = [this] { ShowWork(); };
  connect(m_text2, &QPlainTextEdit::cursorPositionChanged, this, [this] { m_timerPreview->Start(PreviewMs); });
  connect(m_text2, &QPlainTextEdit::textChanged, this, [this] { m_timerPreview->Start(PreviewMs); });
  connect(m_text3, &QLineEdit::textChanged, this, &FrmBusca::ShowName);
  connect(m_text4, &QLineEdit::textChanged, this, &FrmBusca::ShowName);
  ShowRows();
  ShowWork();
  ShowLyrics();
}

FrmBusca::~FrmBusca() = default;

void FrmBusca::MakeSearch(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_site = Named(new QComboBox(this), "ComboSite", tr("Site"), tr("The site that is searched"));
  for (const SiteDeLetras site : SitesDeLetras)
    m_site->addItem(PaginaDe(site).nome);
  m_site->setCurrentIndex(static_cast<int>(m_busca.Site()));
  m_text1 = Named(new QLineEdit(this), "Text1", tr("Words of the title"),
                  tr("Words of the title; Enter searches, Down goes to what was found"));
  m_text1->setPlaceholderText(tr("Words of the title"));
  m_text1->setClearButtonEnabled(true);
  m_text1->installEventFilter(this);
  m_command1 = Button(this, "Command1", tr("S&earch"), tr("Searches the site (Enter)"));
  m_command1->setProperty("look", QStringLiteral("main"));
  row->addWidget(m_site);
  row->addWidget(m_text1, 1);
  row->addWidget(m_command1);
  column->addLayout(row);
  connect(m_site, &QComboBox::currentIndexChanged, this,
          [this](int index) { m_busca.EscolheSite(SitesDeLetras.at(static_cast<size_t>(index))); });
  connect(m_command1, &QPushButton::clicked, this, [this] { m_busca.Command1(m_text1->text()); });
}

QWidget *FrmBusca::MakeRows() {
  auto *left = new QWidget(this);
  auto *rows = new QVBoxLayout(left);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(medidas::Gap);
  m_list1 = Named(new ResultList(left), "List1", tr("What was found"), tr("A click or Enter fetches the lyrics"));
  m_list1->setProperty("look", QStringLiteral("column"));
  m_list1->setMinimumWidth(200);
  m_list1->setTextElideMode(Qt::ElideRight);
  m_list1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  m_artista = Button(left, "CmdArtista", tr("Songs of this &artist"), tr("Lists the songs of the chosen row's artist"));
  rows->addWidget(m_list1, 1);
  rows->addWidget(m_artista);
  connect(m_list1, &QListWidget::itemClicked, this, [this] { m_busca.AbreLinha(m_list1->currentRow()); });
  connect(m_list1, &QListWidget::itemActivated, this, [this] { m_busca.AbreLinha(m_list1->currentRow()); });
  connect(m_list1, &QListWidget::currentRowChanged, this, [this](int linha) { m_artista->setEnabled(linha >= 0); });
  connect(m_artista, &QPushButton::clicked, this, [this] { m_busca.ListaDoArtista(m_list1->currentRow()); });
  return left;
}

QWidget *FrmBusca::MakeBoxes() {
  auto *right = new QWidget(this);
  auto *grid = new QGridLayout(right);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(medidas::Gap);
  const auto box = [this, right, grid](const char *name, const QString &caption, const QString &spoken,
                                       const QString &tip, int at) {
    auto *made = Named(new QLineEdit(right), name, spoken, tip);
    auto *label = new QLabel(caption, right);
    label->setBuddy(made);
    grid->addWidget(label, 0, at);
    grid->addWidget(made, 1, at);
    return made;
  };
  m_text3 =
      box("Text3", tr("&Title"), tr("Title"), tr("Title of the song; title and artist become the file's name"), 0);
  m_text4 = box("Text4", tr("A&rtist"), tr("Artist"), tr("Artist of the song; may be empty"), 1);
  m_text2 =
      Named(new QPlainTextEdit(right), "Text2", tr("Lyrics"), tr("The lyrics, to be checked before they are saved"));
  m_text2->setPlaceholderText(tr("The lyrics of the row that you open appear here.\n"
                                 "They can be changed before they are saved."));
  m_text2->setTabChangesFocus(true);
  m_text2->setMinimumWidth(LeastLyricsWidth);
  grid->addWidget(m_text2, 2, 0);

  auto *side = new QVBoxLayout;
  side->setSpacing(medidas::Gap);
  m_preview = new StanzaPreview(m_doors.editor, right);
  QSizePolicy place = m_preview->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  m_preview->setSizePolicy(place);
  m_tamanho = new QLabel(right);
  m_tamanho->setObjectName(QStringLiteral("LbTamanhoFonte"));
  m_tamanho->setProperty("look", QStringLiteral("quiet"));
  side->addWidget(m_preview);
  side->addWidget(m_tamanho);
  side->addStretch(1);
  grid->addLayout(side, 2, 1);
  grid->setRowStretch(2, 1);
  grid->setColumnStretch(0, 5);
  grid->setColumnStretch(1, 4);
  return right;
}

void FrmBusca::MakeButtons(QVBoxLayout *column) {
  m_strip = new WorkStrip(this);
  column->addWidget(m_strip);
  connect(m_strip, &WorkStrip::Stopped, this, [this] {
    m_busca.Para();
    m_strip->End(tr("Stopped."));
    m_text1->setFocus(Qt::OtherFocusReason);
  });
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_jaExiste = new QLabel(tr("A song of this name is in the collection already."), this);
  m_jaExiste->setObjectName(QStringLiteral("LbJaExiste"));
  m_jaExiste->setProperty("look", QStringLiteral("quiet"));
  m_jaExiste->setProperty("state", QStringLiteral("held"));
  QSizePolicy place = m_jaExiste->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  m_jaExiste->setSizePolicy(place);
  m_salvar = Button(this, "CmdSalvar", QString(), tr("Writes the song into the collection (Ctrl+S)"));
  m_salvar->setProperty("look", QStringLiteral("main"));
  auto *add = Button(this, "CmdAddLista", tr("Save and a&dd"), tr("Saves the song and puts it into the active agenda"));
  auto *close = Button(this, "CmdFechar", tr("&Close"), tr("Closes the window (Esc)"));
  row->addWidget(m_jaExiste, 1);
  row->addWidget(m_salvar);
  row->addWidget(add);
  row->addWidget(close);
  column->addLayout(row);
  connect(m_salvar, &QPushButton::clicked, this, &FrmBusca::Save);
  // Of the window: a key of the button would go with each new caption.
  auto *key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_S), this);
  key->setAutoRepeat(false);
  connect(key, &QShortcut::activated, this, &FrmBusca::Save);
  connect(add, &QPushButton::clicked, this, &FrmBusca::SaveAndAdd);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
}

void FrmBusca::Open(const QString &palavras) {
  if (!palavras.isEmpty())
    m_text1->setText(palavras);
  if (!isVisible()) {
    m_site->setCurrentIndex(static_cast<int>(SitePadrao));
    m_doors.editor.posicoes.RestoreFormPosition(*this, false);
  }
  show();
  raise();
  activateWindow();
  m_text1->setFocus();
  m_text1->selectAll();
  ShowName();
  ShowPreview();
}

void FrmBusca::ShowRows() {
  const QStringList &rows = m_busca.List1();
  m_list1->clear();
  m_list1->addItems(rows);
  for (int row = 0; row < m_list1->count(); ++row)
    m_list1->item(row)->setToolTip(rows[row].toHtmlEscaped());
  m_artista->setEnabled(false);
  if (rows.isEmpty())
    return;
  m_strip->End(rows.size() == 1 ? tr("1 song found") : tr("%1 songs found").arg(locale().toString(rows.size())));
  m_list1->setCurrentRow(0);
  m_list1->setFocus(Qt::OtherFocusReason);
}

void FrmBusca::ShowWork() {
  const bool searching = m_busca.EmCurso() == LyricsSearch::Trabalho::Busca;
  if (m_busca.EmCurso() == LyricsSearch::Trabalho::Nenhum) {
    m_strip->End();
  } else if (!m_strip->IsBusy()) {
    m_strip->Begin(m_busca.Andamento());
  } else {
    m_strip->Advance(m_busca.Andamento(), 0, 0);
  }
  if (searching && m_command1->hasFocus())
    m_text1->setFocus(Qt::OtherFocusReason); // a button that is disabled would hand the keyboard to its neighbour
  m_command1->setEnabled(!searching);
  m_list1->SetEmptyText(searching ? QString()
                                  : tr("Type words of a title and press Enter.\n\n"
                                       "What the site knows is listed here."));
}

void FrmBusca::ShowLyrics() {
  const SongContent &letra = m_busca.Letra();
  m_text2->setPlainText(QString(letra.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  for (const auto &[box, text] : {std::pair(m_text3, letra.name.title), std::pair(m_text4, letra.name.author)}) {
    box->setText(text);
    box->home(false);
  }
  const bool shown = !letra.text.isEmpty();
  m_preview->setVisible(shown);
  m_tamanho->setVisible(shown);
  ShowName();
  ShowPreview();
}

void FrmBusca::ShowPreview() {
  const QString typed = TypedText(*m_text2);
  const int before = m_text2->textCursor().position();
  const int caret = before + static_cast<int>(QStringView(typed).first(before).count(u'\n'));
  const QString text = Content().text;
  const bool shown = !text.trimmed().isEmpty();
  m_preview->setVisible(shown);
  m_tamanho->setVisible(shown);
  if (!shown || !isVisible())
    return;
  const TemaRecord &tema = m_doors.editor.estado.TemaAtual;
  const SongRoom room = m_doors.editor.sala(tema.Maiusculas ? text.toUpper() : text, m_doors.editor.ajustes);
  const QString stanza = StanzaAtCaret(text, caret);
  m_preview->Show(stanza, room.tamanhoBase, tema, m_doors.editor.ajustes);
  const VerseSize size = m_preview->SizeOf(stanza, room.tamanhoBase, tema, m_doors.editor.ajustes);
  m_tamanho->setText(QStringLiteral("Tamanho da fonte: ") + QString::number(qRound(size.pt)));
}

void FrmBusca::ShowName() {
  m_sobrescreve = m_busca.JaExiste(Content().name);
  m_jaExiste->setVisible(m_sobrescreve);
  m_salvar->setText(m_sobrescreve ? QStringLiteral("Overwrite") : QStringLiteral("Save"));
}

SongContent FrmBusca::Content() const {
  return {{m_text3->text(), m_text4->text()}, TypedText(*m_text2).replace(u'\n', QStringLiteral("\r\n"))};
}

void FrmBusca::Save() {
  const SongContent content = Content();
  const QString saved = m_busca.CmdSalvar(content, m_sobrescreve);
  if (!saved.isEmpty() && saved != TitleOfFile(TidyName(content.name)) && !m_strip->IsBusy())
    m_strip->End(tr("Saved as “%1”").arg(saved));
  ShowName();
}

void FrmBusca::SaveAndAdd() {
  const QString added = m_busca.CmdAddLista(Content());
  if (!added.isEmpty() && !m_strip->IsBusy())
    m_strip->End(added);
  ShowName();
}

bool FrmBusca::eventFilter(QObject *watched, QEvent *event) {
  if (watched != m_text1 || event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  switch (key->key()) {
  case Qt::Key_Down:
    m_list1->setFocus(Qt::OtherFocusReason);
    return true;
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat() && m_command1->isEnabled())
      m_busca.Command1(m_text1->text());
    return true;
  default:
    return false;
  }
}

void FrmBusca::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
    close();
  else
    QWidget::keyPressEvent(event);
}

void FrmBusca::hideEvent(QHideEvent *event) {
  m_busca.Para();
  m_doors.editor.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmBusca::changeEvent(QEvent *event) {
  // Meanwhile songs may have come or gone, and theme and text settings may have changed on the console.
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    ShowName();
    m_timerPreview->Start(PreviewMs);
  }
  QWidget::changeEvent(event);
}

} // namespace tolmira
