#include "bible/FrmBibleBrowser.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "bible/books.h"
#include "bible/passage_filter.h"
#include "bible/ui/dialog_keys.h"
#include "bible/ui/passage_bar.h"
#include "controls/ui/palette.h"

namespace tolmira {

namespace {

constexpr QSize Tamanho{840, 520};
constexpr int LarguraDosLivros = 210;    // px: "Lamentations of Jeremiah"
constexpr int LarguraDosCapitulos = 76;
constexpr int Numero = Qt::UserRole; // of the book, chapter or verse that a row stands for

int NumberOf(const QListWidget *list) {
  const QListWidgetItem *item = list->currentItem();
  return item ? item->data(Numero).toInt() : 0;
}

void AddRow(QListWidget *list, int number, const QString &text) {
  auto *item = new QListWidgetItem(text, list);
  item->setData(Numero, number);
}

// The row of that number, else the first; none in an empty list.
void Choose(QListWidget *list, int number) {
  int row = list->count() > 0 ? 0 : -1;
  for (int i = 0; i < list->count(); ++i)
    if (list->item(i)->data(Numero).toInt() == number)
      row = i;
  list->setCurrentRow(row);
  if (QListWidgetItem *item = list->currentItem())
    list->scrollToItem(item, QAbstractItemView::EnsureVisible);
}

} // namespace

FrmBibleBrowser::FrmBibleBrowser(BibleDoors doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)), m_ctrlEnter(m_doors.store) {
  setObjectName(QStringLiteral("FrmBibleBrowser"));
  setWindowTitle(tr("Browse the Bible"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  m_filter = new QLineEdit(this);
  m_filter->setObjectName(QStringLiteral("TxtFiltro"));
  m_filter->setPlaceholderText(tr("Type to narrow: joh 3 16"));
  m_filter->setAccessibleName(tr("Narrow to book, chapter and verse"));
  m_filter->setToolTip(tr("Letters narrow the books, numbers choose chapter and verse"));
  m_filter->setClearButtonEnabled(true);
  m_filter->installEventFilter(this);
  column->addWidget(m_filter);

  MakeColumns();
  auto *columns = new QHBoxLayout;
  columns->setSpacing(medidas::Gap);
  columns->addWidget(m_books);
  columns->addWidget(m_chapters);
  columns->addWidget(m_verses, 1);
  column->addLayout(columns, 1);

  m_reference = new QLabel(this);
  m_reference->setObjectName(QStringLiteral("LbReferencia"));
  m_reference->setProperty("look", QStringLiteral("caps"));
  column->addWidget(m_reference);
  m_bar = new PassageBar(m_doors, this);
  column->addWidget(m_bar);

  connect(m_filter, &QLineEdit::textChanged, this, &FrmBibleBrowser::Narrow);
  connect(m_bar, &PassageBar::AddWanted, this, &FrmBibleBrowser::Add);
  connect(m_bar, &PassageBar::ShowWanted, this, &FrmBibleBrowser::Show);
  resize(Tamanho);
}

void FrmBibleBrowser::MakeColumns() {
  const auto list = [this](const char *name, const QString &spoken) {
    auto *made = new QListWidget(this);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(spoken);
    made->setToolTip(tr("%1: Left and Right go from column to column").arg(spoken));
    made->setProperty("look", QStringLiteral("column"));
    made->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    made->setTextElideMode(Qt::ElideRight);
    made->setUniformItemSizes(true);
    made->installEventFilter(this);
    return made;
  };
  m_books = list("ListLivros", tr("Books"));
  m_books->setFixedWidth(LarguraDosLivros);
  m_chapters = list("ListCapitulos", tr("Chapters"));
  m_chapters->setFixedWidth(LarguraDosCapitulos);
  m_verses = list("ListVersiculos", tr("Verses"));

  connect(m_books, &QListWidget::currentRowChanged, this, [this] { FillChapters(0); });
  connect(m_chapters, &QListWidget::currentRowChanged, this, [this] { FillVerses(0); });
  connect(m_verses, &QListWidget::currentRowChanged, this, &FrmBibleBrowser::ShowChosen);
  connect(m_verses, &QListWidget::itemDoubleClicked, this, [this] { Show(); });
}

Passagem FrmBibleBrowser::Chosen() const {
  const Passagem passagem{NumberOf(m_books), NumberOf(m_chapters), NumberOf(m_verses)};
  return passagem.livro > 0 && passagem.capitulo > 0 && passagem.versiculo > 0 ? passagem : Passagem();
}

void FrmBibleBrowser::FillBooks(const QList<int> &books, int chosen) {
  {
    const QSignalBlocker quiet(m_books);
    m_books->clear();
    for (const int book : books)
      AddRow(m_books, book, BookName(book));
    Choose(m_books, chosen);
  }
  FillChapters(0);
}

void FrmBibleBrowser::FillChapters(int chosen) {
  {
    const QSignalBlocker quiet(m_chapters);
    m_chapters->clear();
    for (const int chapter : m_doors.biblia.CapitulosDoLivro(NumberOf(m_books)))
      AddRow(m_chapters, chapter, QString::number(chapter));
    Choose(m_chapters, chosen);
  }
  FillVerses(0);
}

void FrmBibleBrowser::FillVerses(int chosen) {
  {
    const QSignalBlocker quiet(m_verses);
    m_verses->clear();
    const QStringList verses = m_doors.biblia.VersiculosDoCapitulo(NumberOf(m_books), NumberOf(m_chapters));
    for (int verse = 1; verse <= verses.size(); ++verse)
      AddRow(m_verses, verse, QString::number(verse) + u"  " + verses[verse - 1]);
    Choose(m_verses, chosen);
  }
  ShowChosen();
}

void FrmBibleBrowser::ShowChosen() {
  const Passagem chosen = Chosen();
  m_reference->setText(ReferenciaDe(chosen));
  m_bar->SetText(m_doors.biblia.Versoes().empty()
                      ? tr("There is no Bible in the program folder.")
                      : m_doors.biblia.VersiculosDoCapitulo(chosen.livro, chosen.capitulo).value(chosen.versiculo - 1));
}

void FrmBibleBrowser::GoTo(const Passagem &passagem) {
  {
    const QSignalBlocker quiet(m_books);
    Choose(m_books, passagem.livro);
  }
  FillChapters(passagem.capitulo);
  FillVerses(passagem.versiculo);
}

void FrmBibleBrowser::Narrow() {
  const PassageFilter filter = ParsePassageFilter(m_filter->text());
  const QList<int> books = BooksOf(filter);
  // Digits alone choose in the book that is chosen; letters choose the first book that they leave.
  FillBooks(books, filter.livro.isEmpty() ? NumberOf(m_books) : 0);
  GoTo({NumberOf(m_books), filter.capitulo, filter.versiculo});
}

void FrmBibleBrowser::Open() {
  m_bar->SetHint(m_ctrlEnter.Hint());
  m_bar->ClearMessage();
  const Passagem before = Chosen();
  m_filter->clear();
  FillBooks(BooksOf({}), 0);
  const Passagem onShow = PassagemDe(m_doors.referenciaNoTelao());
  GoTo(onShow.livro > 0 ? onShow : before);
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_filter->setFocus();
}

void FrmBibleBrowser::keyPressEvent(QKeyEvent *event) {
  if (!PressedInDialog(*this, *event))
    QWidget::keyPressEvent(event);
}

void FrmBibleBrowser::hideEvent(QHideEvent *event) {
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

void FrmBibleBrowser::changeEvent(QEvent *event) {
  // The rule of Enter may have been flipped elsewhere meanwhile.
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    m_bar->SetHint(m_ctrlEnter.Hint());
  QWidget::changeEvent(event);
}

void FrmBibleBrowser::VersionChanged() { GoTo({NumberOf(m_books), NumberOf(m_chapters), NumberOf(m_verses)}); }

void FrmBibleBrowser::Add() { m_bar->Add(ReferenciaDe(Chosen())); }
void FrmBibleBrowser::Show() { m_bar->Show(ReferenciaDe(Chosen())); }

void FrmBibleBrowser::Accept(bool ctrl) { m_ctrlEnter.EnterShows(ctrl) ? Show() : Add(); }

void FrmBibleBrowser::ToNeighbour(QWidget *column, int step) {
  QWidget *const order[] = {m_filter, m_books, m_chapters, m_verses};
  for (int i = 0; i < 4; ++i)
    if (order[i] == column && i + step >= 0 && i + step < 4) {
      order[i + step]->setFocus(Qt::TabFocusReason);
      return;
    }
}

bool FrmBibleBrowser::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  auto *column = qobject_cast<QWidget *>(watched);
  const auto *key = static_cast<QKeyEvent *>(event);
  const bool typing = column == m_filter;
  switch (key->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      Accept((key->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier);
    return true;
  case Qt::Key_Escape:
    if (m_filter->text().isEmpty())
      close();
    else
      m_filter->clear();
    return true;
  case Qt::Key_Down:
    if (!typing)
      return false;
    // Into the column that is not settled yet.
    (ParsePassageFilter(m_filter->text()).capitulo > 0 ? m_verses : m_books)->setFocus(Qt::TabFocusReason);
    return true;
  case Qt::Key_Left:
    if (typing)
      return false;
    ToNeighbour(column, -1);
    return true;
  case Qt::Key_Right:
    if (typing)
      return false;
    ToNeighbour(column, 1);
    return true;
  default:
    // Letters and digits go on narrowing wherever the focus is.
    if (!typing && !key->text().isEmpty() && key->text().front().isPrint() &&
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
      m_filter->setFocus(Qt::OtherFocusReason);
      m_filter->insert(key->text());
      return true;
    }
    return false;
  }
}

} // namespace tolmira
