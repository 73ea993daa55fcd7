#include "songs/FrmEditar.h"

#include "controls/ui/palette.h"
#include "songs/song_text.h"
#include "songs/ui/find_bar.h"
#include "songs/ui/lyrics_edit.h"
#include "songs/ui/stanza_preview.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace tolmira {

namespace {

const QString BoxTitle = QStringLiteral("Tolmira");
constexpr QSize FirstSize{980, 640};
constexpr int LeastHeight = 420;
constexpr int ShownOfLanguage = 12; // letters, when the window is at its narrowest
constexpr int MostOfLanguage = 200; // px
constexpr int PreviewMs = 120; // after a key; a burst of keys is looked at once
enum Answer { SaveIt = 0, DropIt = 1 };

QString LanguageName(const QString &code) {
  const QLocale locale(code);
  const QString name = locale.language() == QLocale::C ? code : locale.nativeLanguageName();
  const QString country = code.section(u'_', 1, 1);
  return country.isEmpty() ? name : name + QStringLiteral(" (%1)").arg(country);
}

QString Sentence(const SongWarning &warning) {
  if (warning.kind == SongWarning::Kind::SplitStanza)
    return FrmEditar::tr("Stanza %1 is too tall for one screen and will be split into %2 verses.")
        .arg(warning.stanza)
        .arg(warning.parts);
  if (warning.kind == SongWarning::Kind::SmallSong)
    return FrmEditar::tr("Stanza %1 is so long that the whole song gets smaller: size %2 instead of %3.")
        .arg(warning.stanza)
        .arg(qRound(warning.size.pt))
        .arg(qRound(warning.size.wantedPt));
  return FrmEditar::tr("Stanza %1 has a long line and will be shown at %2 pt instead of %3 pt.")
      .arg(warning.stanza)
      .arg(qRound(warning.size.pt))
      .arg(qRound(warning.size.wantedPt));
}

} // namespace

FrmEditar::FrmEditar(const SongEditorDoors &doors, Spelling &spelling)
    : QWidget(doors.dono, Qt::Window), m_doors(doors), m_spelling(spelling), m_editor(doors.store.App(), doors.prompt),
      m_draft(DraftFolder(doors.store.App()), doors.clock, [this] {
        const SongContent now = Content();
        return ToJson({m_editor.Modo(), m_editor.Caminho(), now.name.title, now.name.author, now.text,
                       m_editor.Arquivo()});
      }) {
  setObjectName(QStringLiteral("FrmEditar"));
  setMinimumHeight(LeastHeight); // the breadth follows from what stands in the rows
  resize(FirstSize);
  m_editor.AbertoEmOutro = [this](const QString &path) { return AbertoEmOutro && AbertoEmOutro(path); };

  auto *rows = new QVBoxLayout(this);
  rows->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  rows->setSpacing(medidas::Gap);
  auto *desk = new QSplitter(Qt::Horizontal, this);
  desk->setChildrenCollapsible(false);
  auto *left = new QWidget(desk);
  auto *leftColumn = new QVBoxLayout(left);
  leftColumn->setContentsMargins(0, 0, medidas::Gap, 0);
  leftColumn->setSpacing(medidas::Gap);
  MakeBoxes(leftColumn);
  MakeTools(leftColumn);
  leftColumn->addWidget(m_text2, 1);
  leftColumn->addWidget(m_find);
  auto *right = new QWidget(desk);
  auto *rightColumn = new QVBoxLayout(right);
  rightColumn->setContentsMargins(medidas::Gap, 0, 0, 0);
  rightColumn->setSpacing(medidas::Gap);
  MakeSide(rightColumn);
  desk->addWidget(left);
  desk->addWidget(right);
  desk->setStretchFactor(0, 3);
  desk->setStretchFactor(1, 2);
  desk->setSizes({580, 380});
  rows->addWidget(desk, 1);
  MakeButtons(rows);
  MakeKeys();

  m_timerPreview = m_doors.clock.NewTimer([this] {
    m_timerPreview->Stop();
    ShowPreview();
  });
  connect(m_text1, &QLineEdit::textChanged, this, &FrmEditar::Edited);
  connect(m_text3, &QLineEdit::textChanged, this, &FrmEditar::Edited);
  // Comes for colours as well as for letters; Edited looks at the text itself.
  connect(m_text2, &QPlainTextEdit::textChanged, this, &FrmEditar::Edited);
  connect(m_text2, &QPlainTextEdit::cursorPositionChanged, this, [this] { m_timerPreview->Start(PreviewMs); });
  m_draft.OnKept = [this](bool kept) {
    if (!kept)
      Tell(tr("The unsaved text cannot be kept on disk. Save it, or copy it to another place."));
  };
}

FrmEditar::~FrmEditar() = default;

void FrmEditar::MakeBoxes(QVBoxLayout *column) {
  auto *grid = new QGridLayout;
  grid->setSpacing(medidas::Gap);
  const auto box = [this, grid](const char *name, const QString &caption, int at) {
    auto *made = new QLineEdit(this);
    made->setObjectName(QLatin1String(name));
    auto *label = new QLabel(caption, this);
    label->setBuddy(made);
    grid->addWidget(label, 0, at);
    grid->addWidget(made, 1, at);
    return made;
  };
  m_text1 = box("Text1", tr("&Title"), 0);
  m_text1->setAccessibleName(tr("Title"));
  m_text1->setToolTip(tr("Title of the song; title and author are the file's name"));
  m_text3 = box("Text3", tr("&Author"), 1);
  m_text3->setAccessibleName(tr("Author"));
  m_text3->setToolTip(tr("Author of the song; may be empty"));
  grid->setColumnStretch(0, 3);
  grid->setColumnStretch(1, 2);
  column->addLayout(grid);
  m_text2 = new LyricsEdit(m_spelling, this);
  m_text2->setObjectName(QStringLiteral("Text2"));
  m_text2->setAccessibleName(tr("Lyrics"));
  m_text2->setToolTip(tr("The lyrics, with an empty line between two stanzas"));
  m_text2->setPlaceholderText(tr("The lyrics, with an empty line between two stanzas.\n"
                                 "A line that holds only \"-\" is an empty line inside a stanza."));
  m_find = new FindBar(m_text2, this);
}

void FrmEditar::MakeTools(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Step);
  const auto button = [this, row](const char *name, const QString &caption, const QString &tip) {
    auto *made = new QPushButton(caption, this);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    row->addWidget(made);
    return made;
  };
  QPushButton *undo = button("BtDesfazer", tr("&Undo"), tr("Takes the last change back (Ctrl+Z)"));
  QPushButton *redo = button("BtRefazer", tr("Re&do"), tr("Makes it again (Ctrl+Shift+Z)"));
  QPushButton *find = button("BtLocalizar", tr("&Find"), tr("Find and replace (Ctrl+F, Ctrl+H)"));
  QPushButton *format = button("BtFormato", tr("F&ormat…"), tr("How text is shown: capital letters and more"));
  row->addStretch(1);
  m_language = new QComboBox(this);
  m_language->setObjectName(QStringLiteral("ComboIdioma"));
  m_language->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_language->setMinimumContentsLength(ShownOfLanguage);
  m_language->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  m_language->setMaximumWidth(MostOfLanguage);
  m_language->setAccessibleName(tr("Language of the spelling check"));
  m_language->setToolTip(tr("Language of the spelling check"));
  m_language->addItem(tr("No spelling check"), QString());
  for (const SpellingDictionary &dictionary : m_spelling.Dictionaries())
    m_language->addItem(LanguageName(dictionary.code), dictionary.code);
  m_language->setVisible(m_language->count() > 1);
  row->addWidget(m_language);
  column->addLayout(row);

  undo->setEnabled(false);
  redo->setEnabled(false);
  connect(m_text2, &QPlainTextEdit::undoAvailable, undo, &QWidget::setEnabled);
  connect(m_text2, &QPlainTextEdit::redoAvailable, redo, &QWidget::setEnabled);
  connect(undo, &QPushButton::clicked, m_text2, &QPlainTextEdit::undo);
  connect(redo, &QPushButton::clicked, m_text2, &QPlainTextEdit::redo);
  connect(find, &QPushButton::clicked, this, [this] { m_find->Open(true); });
  connect(format, &QPushButton::clicked, this, &FrmEditar::FormatWanted);
  connect(m_language, &QComboBox::activated, this, [this](int index) {
    m_languageChosen = true;
    m_spelling.SetLanguage(m_language->itemData(index).toString());
  });
  connect(&m_spelling, &Spelling::LanguageChanged, this, &FrmEditar::ShowLanguage);
  ShowLanguage();
}

void FrmEditar::MakeSide(QVBoxLayout *column) {
  m_preview = new StanzaPreview(m_doors, this);
  column->addWidget(m_preview);
  auto *hints = new QHBoxLayout;
  const auto quiet = [this, hints](const char *name) {
    auto *made = new QLabel(this);
    made->setObjectName(QLatin1String(name));
    made->setProperty("look", QStringLiteral("quiet"));
    hints->addWidget(made);
    return made;
  };
  m_size = quiet("LbTamanhoFonte");
  hints->addStretch(1);
  m_stanza = quiet("LbEstrofe");
  column->addLayout(hints);
  m_warnings = new QListWidget(this);
  m_warnings->setObjectName(QStringLiteral("ListAvisos"));
  m_warnings->setProperty("look", QStringLiteral("column"));
  m_warnings->setWordWrap(true);
  m_warnings->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QSizePolicy keepsItsPlace = m_warnings->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  m_warnings->setSizePolicy(keepsItsPlace);
  m_warnings->setAccessibleName(tr("What will be split or shown smaller"));
  m_warnings->setToolTip(tr("Enter or a double click goes to the place in the text"));
  column->addWidget(m_warnings, 1);
  connect(m_warnings, &QListWidget::itemActivated, this, [this](const QListWidgetItem *item) {
    m_text2->GoTo(item->data(Qt::UserRole).toLongLong());
    m_text2->setFocus();
  });
}

void FrmEditar::MakeButtons(QVBoxLayout *column) {
  auto *row = new QHBoxLayout;
  row->setSpacing(medidas::Gap);
  m_state = new QLabel(this);
  m_state->setObjectName(QStringLiteral("LbEstado"));
  m_state->setTextFormat(Qt::PlainText);
  m_state->setWordWrap(true);
  m_state->setAccessibleName(tr("State of the text"));
  row->addWidget(m_state, 1);
  m_save = new QPushButton(tr("&Save"), this);
  m_save->setObjectName(QStringLiteral("BotaoFlat1"));
  m_save->setProperty("look", QStringLiteral("main"));
  m_save->setToolTip(tr("Writes the song into the collection (Ctrl+S)"));
  auto *close = new QPushButton(tr("&Close"), this);
  close->setObjectName(QStringLiteral("BotaoFlat2"));
  close->setToolTip(tr("Closes the window (Esc)"));
  row->addWidget(m_save);
  row->addWidget(close);
  column->addLayout(row);
  connect(m_save, &QPushButton::clicked, this, [this] { BotaoFlat1(); });
  connect(close, &QPushButton::clicked, this, &QWidget::close);
}

void FrmEditar::MakeKeys() {
  const auto key = [this](const QKeySequence &sequence, std::function<void()> way) {
    auto *shortcut = new QShortcut(sequence, this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, way);
  };
  key(QKeySequence(Qt::CTRL | Qt::Key_S), [this] { BotaoFlat1(); });
  key(QKeySequence(Qt::CTRL | Qt::Key_F), [this] { m_find->Open(false); });
  key(QKeySequence(Qt::CTRL | Qt::Key_H), [this] { m_find->Open(true); });
  key(QKeySequence(Qt::Key_F3), [this] { m_find->Next(); });
  key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { m_find->Previous(); });
}

bool FrmEditar::SetDados(const QString &mode, const QString &path) {
  if (!m_editor.SetDados(mode, path))
    return false;
  Fill(m_editor.Guardado());
  Tell({});
  return true;
}

void FrmEditar::SetDados(const SongDrafts::Found &found) {
  const SongDraft &draft = found.draft;
  m_editor.SetDadosDeRascunho(draft);
  const bool changed = m_editor.Modo() != draft.mode;
  Fill(m_editor.Guardado());
  m_draft.Adopt(found.id);
  ShowName({draft.title, draft.author});
  m_text2->TakeText(draft.text);
  Tell(changed ? tr("This text was not saved yet. The song was changed since.") : tr("This text was not saved yet."));
}

void FrmEditar::Fill(const SongContent &content) {
  m_text2->Load(content.text);
  m_asLoaded = m_text2->Text(); // mixed line ends are alike now, and that is no change of the operator's
  ShowName(content.name);
  ShowChanged();
}

// A name that is longer than its box shows its beginning; where the operator is typing, the caret stays.
void FrmEditar::ShowName(const SongName &name) {
  const auto show = [](QLineEdit *box, const QString &text) {
    if (box->text() == text)
      return;
    box->setText(text);
    box->home(false);
  };
  show(m_text1, name.title);
  show(m_text3, name.author);
}

SongContent FrmEditar::Content() const {
  return {{m_text1->text(), m_text3->text()}, m_text2->Text()};
}

bool FrmEditar::IsChanged() const {
  const SongContent now = Content();
  return now.text != m_asLoaded || TidyName(now.name) != TidyName(m_editor.Guardado().name);
}

void FrmEditar::Edited() {
  const SongContent now = Content();
  if (now == m_seen)
    return;
  m_seen = now;
  if (IsChanged())
    m_draft.Changed();
  else
    m_draft.Forget();
  Tell({});
  ShowChanged();
  m_timerPreview->Start(PreviewMs);
}

void FrmEditar::ShowChanged() {
  const QString title = TidyName(Content().name).title;
  setWindowTitle((title.isEmpty() ? tr("New song") : title) + QStringLiteral("[*] – ") + tr("Lyrics"));
  setWindowModified(IsChanged());
}

void FrmEditar::Open() {
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  (m_editor.Modo() == ModoAdicionar && m_text1->text().isEmpty() ? static_cast<QWidget *>(m_text1) : m_text2)
      ->setFocus();
  ChooseLanguage();
  ShowPreview();
}

bool FrmEditar::BotaoFlat1() {
  if (m_saving)
    return false;
  m_saving = true;
  const SongEditor::Result result = m_editor.Save(Content());
  m_saving = false;
  switch (result.outcome) {
  case SongEditor::Outcome::BadName:
    m_text1->setFocus();
    return false;
  case SongEditor::Outcome::Failed:
    Tell(tr("Not saved."));
    return false;
  case SongEditor::Outcome::GivenUp:
    return false;
  case SongEditor::Outcome::Saved:
    break;
  }
  const SongContent &saved = m_editor.Guardado();
  m_text2->TakeText(saved.text);
  m_asLoaded = m_text2->Text();
  ShowName(saved.name);
  m_seen = Content();
  m_draft.Forget();
  ShowChanged();
  Tell(tr("Saved as %1").arg(result.newName));
  m_doors.console.ProcessaEditar(result.oldName, result.newName);
  if (m_parent)
    m_parent->AtualizaLista(result.newName.chopped(QStringLiteral(".txt").size()));
  ChooseLanguage();
  return true;
}

void FrmEditar::ShowPreview() {
  const TemaRecord &tema = m_doors.estado.TemaAtual;
  const QString text = m_text2->Text();
  const qsizetype caret = m_text2->Caret();
  const SongRoom room = m_doors.sala(tema.Maiusculas ? text.toUpper() : text, m_doors.ajustes);
  const QString stanza = StanzaAtCaret(text, static_cast<int>(caret));
  m_preview->Show(stanza, room.tamanhoBase, tema, m_doors.ajustes);

  const VerseSize size = m_preview->SizeOf(stanza, room.tamanhoBase, tema, m_doors.ajustes);
  m_size->setText(stanza.isEmpty() ? tr("The stanza at the caret is shown here.")
                                   : QStringLiteral("Font size: ") + QString::number(qRound(size.pt)));
  int all = 0;
  int here = 0;
  qsizetype from = 0;
  for (const QString &piece : text.split(QStringLiteral("\r\n\r\n"))) {
    const bool counts = !piece.trimmed().isEmpty();
    all += counts ? 1 : 0;
    if (counts && from <= caret)
      here = all;
    from += piece.size() + 4;
  }
  m_stanza->setText(all == 0 ? QString() : tr("Stanza %1 of %2").arg(std::max(here, 1)).arg(all));
  ShowWarnings(text, room);
}

void FrmEditar::ShowWarnings(const QString &text, const SongRoom &room) {
  const TemaRecord &tema = m_doors.estado.TemaAtual;
  const SongMeasures by{
      room.pagina, m_doors.measure,
      [&](const QString &verse) { return m_preview->SizeOf(verse, room.tamanhoBase, tema, m_doors.ajustes); },
      [&](const QString &stanza) { return m_doors.sala(stanza, m_doors.ajustes).tamanhoBase; }};
  const QList<SongWarning> warnings = CheckSong(tema.Maiusculas ? text.toUpper() : text, by);
  QList<qsizetype> places;
  QStringList sentences;
  for (const SongWarning &warning : warnings) {
    places.append(warning.position);
    sentences.append(Sentence(warning));
  }
  m_text2->MarkLines(places);
  // The list is left alone while it says the same, or the row under the keyboard would be lost at each key.
  bool same = m_warnings->count() == sentences.size();
  for (int i = 0; same && i < m_warnings->count(); ++i)
    same = m_warnings->item(i)->text() == sentences[i];
  if (!same) {
    m_warnings->clear();
    m_warnings->addItems(sentences);
  }
  for (int i = 0; i < m_warnings->count(); ++i)
    m_warnings->item(i)->setData(Qt::UserRole, places[i]);
  m_warnings->setVisible(!sentences.isEmpty());
}

void FrmEditar::Tell(const QString &text) {
  m_state->setText(text);
}

// The operator's own choice stays; otherwise the words decide.
void FrmEditar::ChooseLanguage() {
  if (!m_languageChosen)
    m_spelling.ChooseFor(m_text2->Text());
}

void FrmEditar::ShowLanguage() {
  const QSignalBlocker quiet(m_language);
  m_language->setCurrentIndex(std::max(0, m_language->findData(m_spelling.Language())));
}

void FrmEditar::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
    if (m_find->isVisible())
      m_find->Leave();
    else
      close();
    return;
  }
  QWidget::keyPressEvent(event);
}

void FrmEditar::changeEvent(QEvent *event) {
  // Theme and text settings may have changed on the console.
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    m_timerPreview->Start(PreviewMs);
  QWidget::changeEvent(event);
}

void FrmEditar::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmEditar::closeEvent(QCloseEvent *event) {
  if (m_saving) {
    event->ignore();
    return;
  }
  if (IsChanged()) {
    const QString title = TidyName(Content().name).title;
    const int answer = m_doors.prompt.Ask(
        BoxTitle, tr("The lyrics of '%1' are not saved. Save them?").arg(title.isEmpty() ? tr("New song") : title),
        {tr("Save"), tr("Don't save"), tr("Cancel")});
    if (answer == SaveIt ? !BotaoFlat1() : answer != DropIt) {
      event->ignore();
      return;
    }
  }
  m_draft.Forget();
  event->accept();
  emit Closed();
}

} // namespace tolmira
