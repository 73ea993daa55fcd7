#include "bible/FrmBibleSearch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <QVBoxLayout>

#include "bible/ui/dialog_keys.h"
#include "bible/ui/hit_model.h"
#include "bible/ui/passage_bar.h"
#include "controls/ui/palette.h"

namespace tolmira {

namespace {

constexpr QSize Tamanho{840, 480};
constexpr int LarguraDaReferencia = 230; // px: "Lamentations of Jeremiah 3:22"
constexpr qsizetype LetrasPorVez = 500000; // some milliseconds

} // namespace

FrmBibleSearch::FrmBibleSearch(BibleDoors doors)
    : QWidget(doors.dono, Qt::Dialog), m_doors(std::move(doors)), m_hits(new HitModel(this)) {
  setObjectName(QStringLiteral("FrmBibleSearch"));
  setWindowTitle(tr("Search the Bible"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Margin, medidas::Margin, medidas::Margin, medidas::Margin);
  column->setSpacing(medidas::Gap);

  m_query = new QLineEdit(this);
  m_query->setObjectName(QStringLiteral("TxtBusca"));
  m_query->setPlaceholderText(tr("Words of the verse; put a phrase in double quotes"));
  m_query->setAccessibleName(tr("Words to search for"));
  m_query->setToolTip(tr("Verses that hold all these words"));
  m_query->setClearButtonEnabled(true);
  m_query->installEventFilter(this);
  column->addWidget(m_query);

  m_state = new QLabel(this);
  m_state->setObjectName(QStringLiteral("LbBusca"));
  m_state->setProperty("look", QStringLiteral("quiet"));
  m_state->setTextFormat(Qt::PlainText);
  column->addWidget(m_state);

  m_list = new QTreeView(this);
  m_list->setObjectName(QStringLiteral("ListResultados"));
  m_list->setAccessibleName(tr("Verses found"));
  m_list->setToolTip(tr("Enter shows the verse, Ctrl+Enter adds it to the agenda"));
  m_list->setProperty("look", QStringLiteral("column"));
  m_list->setModel(m_hits);
  m_list->setRootIsDecorated(false);
  m_list->setUniformRowHeights(true);
  m_list->setHeaderHidden(true);
  m_list->setAllColumnsShowFocus(true);
  m_list->header()->setStretchLastSection(true);
  m_list->setColumnWidth(0, LarguraDaReferencia);
  m_list->installEventFilter(this);
  column->addWidget(m_list, 1);

  m_bar = new PassageBar(m_doors, this);
  m_bar->SetHint(tr("Enter shows, Ctrl+Enter adds to the agenda"));
  column->addWidget(m_bar);

  m_slice.setInterval(0);
  connect(&m_slice, &QTimer::timeout, this, &FrmBibleSearch::SearchOn);
  connect(m_query, &QLineEdit::textChanged, this, &FrmBibleSearch::StartSearch);
  connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FrmBibleSearch::ShowChosen);
  connect(m_list, &QTreeView::doubleClicked, this, &FrmBibleSearch::Show);
  connect(m_bar, &PassageBar::ShowWanted, this, &FrmBibleSearch::Show);
  connect(m_bar, &PassageBar::AddWanted, this, &FrmBibleSearch::Add);
  resize(Tamanho);
}

void FrmBibleSearch::Open() {
  m_bar->ClearMessage();
  if (m_searchedVersion != m_doors.biblia.VersaoBiblia())
    StartSearch();
  if (!isVisible())
    m_doors.posicoes.RestoreFormPosition(*this, false);
  show();
  raise();
  activateWindow();
  m_query->setFocus();
  m_query->selectAll();
}

void FrmBibleSearch::keyPressEvent(QKeyEvent *event) {
  if (!PressedInDialog(*this, *event))
    QWidget::keyPressEvent(event);
}

void FrmBibleSearch::hideEvent(QHideEvent *event) {
  m_slice.stop();
  m_doors.posicoes.SaveFormPosition(*this, false);
  QWidget::hideEvent(event);
}

// Also where the window was only minimised.
void FrmBibleSearch::showEvent(QShowEvent *event) {
  if (m_search)
    m_slice.start();
  QWidget::showEvent(event);
}

void FrmBibleSearch::StartSearch() {
  const BibleStore &biblia = m_doors.biblia;
  m_searchedVersion = biblia.VersaoBiblia();
  m_hits->Clear();
  m_search.emplace(biblia.Texto(biblia.BibliaAtual(), false), biblia.Texto(biblia.BibliaAtual(), true),
                   m_query->text());
  m_estado = m_search->Estado();
  if (m_estado == QueryState::Ready)
    m_slice.start();
  else
    m_search.reset();
  ShowState();
  ShowChosen();
}

void FrmBibleSearch::SearchOn() {
  if (m_search) {
    QList<SearchHit> found;
    const bool more = m_search->Next(LetrasPorVez, found);
    const bool first = m_hits->rowCount() == 0 && !found.isEmpty();
    m_hits->Append(found);
    if (first)
      m_list->setCurrentIndex(m_hits->index(0, 0));
    if (!more)
      m_search.reset();
  }
  if (!m_search)
    m_slice.stop();
  ShowState();
}

void FrmBibleSearch::ShowState() {
  const int count = m_hits->rowCount();
  if (m_doors.biblia.Versoes().empty())
    m_state->setText(tr("There is no Bible in the program folder."));
  else if (m_search)
    m_state->setText(tr("Searching… %1 found").arg(count));
  else if (m_estado == QueryState::Empty)
    m_state->setText(tr("Searches the whole of %1. Every word must occur.").arg(m_searchedVersion));
  else if (m_estado == QueryState::TooShort)
    m_state->setText(tr("Type a word of at least two letters."));
  else if (m_estado == QueryState::TooLong)
    m_state->setText(tr("These are more words than can be searched for."));
  else if (count == 0)
    m_state->setText(tr("No verse of %1 has these words.").arg(m_searchedVersion));
  else
    m_state->setText(count == 1 ? tr("1 verse of %1").arg(m_searchedVersion)
                                : tr("%1 verses of %2").arg(count).arg(m_searchedVersion));
}

std::optional<SearchHit> FrmBibleSearch::Chosen() const {
  const QModelIndex current = m_list->currentIndex();
  if (!current.isValid())
    return std::nullopt;
  return m_hits->At(current.row());
}

void FrmBibleSearch::ShowChosen() {
  const std::optional<SearchHit> hit = Chosen();
  m_bar->SetText(hit ? QString(ReferenciaDe(*hit) + u"  " + hit->text) : QString());
}

QString FrmBibleSearch::ChosenReference() const {
  const std::optional<SearchHit> hit = Chosen();
  return hit ? ReferenciaDe(*hit) : QString();
}

void FrmBibleSearch::Add() { m_bar->Add(ChosenReference()); }
void FrmBibleSearch::Show() { m_bar->Show(ChosenReference()); }

bool FrmBibleSearch::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const auto *key = static_cast<QKeyEvent *>(event);
  const bool typing = watched == m_query;
  switch (key->key()) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    if (!key->isAutoRepeat())
      (key->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier ? Add() : Show();
    return true;
  case Qt::Key_Escape:
    close();
    return true;
  case Qt::Key_Down:
  case Qt::Key_Up:
  case Qt::Key_PageDown:
  case Qt::Key_PageUp:
    // The list moves under the words that are being typed.
    if (typing)
      QCoreApplication::sendEvent(m_list, event);
    return typing;
  default:
    if (!typing && !key->text().isEmpty() && key->text().front().isPrint() &&
        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
      m_query->setFocus(Qt::OtherFocusReason);
      m_query->insert(key->text());
      return true;
    }
    return false;
  }
}

} // namespace tolmira
