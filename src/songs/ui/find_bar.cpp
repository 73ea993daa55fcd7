#include "songs/ui/find_bar.h"

#include "controls/ui/palette.h"
#include "songs/ui/lyrics_edit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tolmira {

FindBar::FindBar(LyricsEdit *text, QWidget *parent) : QFrame(parent), m_text(text) {
  setObjectName(QStringLiteral("PicLocalizar"));
  setProperty("look", QStringLiteral("panel"));
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(medidas::Gap, medidas::Gap, medidas::Gap, medidas::Gap);
  column->setSpacing(medidas::Step);

  const auto box = [](const char *name, const QString &hint, QWidget *owner) {
    auto *made = new QLineEdit(owner);
    made->setObjectName(QLatin1String(name));
    made->setPlaceholderText(hint);
    made->setAccessibleName(hint);
    return made;
  };
  const auto button = [](const char *name, const QString &caption, const QString &tip, QWidget *owner) {
    auto *made = new QPushButton(caption, owner);
    made->setObjectName(QLatin1String(name));
    made->setToolTip(tip);
    made->setAutoDefault(false);
    return made;
  };

  auto *findRow = new QHBoxLayout;
  findRow->setSpacing(medidas::Step);
  m_find = box("TxtLocalizar", tr("Find"), this);
  QPushButton *previous = button("BtAnterior", tr("Pre&vious"), tr("The one before (Shift+F3)"), this);
  QPushButton *next = button("BtProximo", tr("Ne&xt"), tr("The next one (F3 or Enter)"), this);
  m_case = new QCheckBox(tr("&Match case"), this);
  m_case->setObjectName(QStringLiteral("ChkCaixa"));
  m_case->setToolTip(tr("Capital and small letters count as different"));
  m_state = new QLabel(this);
  m_state->setObjectName(QStringLiteral("LbLocalizar"));
  m_state->setProperty("look", QStringLiteral("quiet"));
  QPushButton *leave = button("BtFecharLocalizar", tr("×"), tr("Closes the bar (Esc)"), this);
  leave->setProperty("look", QStringLiteral("icon"));
  leave->setAccessibleName(tr("Close find and replace"));
  findRow->addWidget(m_find, 1);
  for (QPushButton *each : {previous, next, leave})
    findRow->addWidget(each);
  column->addLayout(findRow);

  m_replaceRow = new QWidget(this);
  auto *replaceRow = new QHBoxLayout(m_replaceRow);
  replaceRow->setContentsMargins(0, 0, 0, 0);
  replaceRow->setSpacing(medidas::Step);
  m_with = box("TxtSubstituir", tr("Replace with"), m_replaceRow);
  QPushButton *one = button("BtSubstituir", tr("&Replace"), tr("Replaces this one and goes on (Enter)"), m_replaceRow);
  QPushButton *all =
      button("BtSubstituirTudo", tr("Replace &all"), tr("Replaces every one, as one step"), m_replaceRow);
  replaceRow->addWidget(m_with, 1);
  replaceRow->addWidget(one);
  replaceRow->addWidget(all);
  column->addWidget(m_replaceRow);
  auto *stateRow = new QHBoxLayout;
  stateRow->setSpacing(medidas::Gap);
  stateRow->addWidget(m_case);
  stateRow->addWidget(m_state, 1);
  column->addLayout(stateRow);

  connect(m_find, &QLineEdit::textChanged, this, &FindBar::Mark);
  connect(m_case, &QCheckBox::toggled, this, &FindBar::Mark);
  connect(m_find, &QLineEdit::returnPressed, this, &FindBar::Next);
  connect(m_with, &QLineEdit::returnPressed, this, &FindBar::Replace);
  connect(previous, &QPushButton::clicked, this, &FindBar::Previous);
  connect(next, &QPushButton::clicked, this, &FindBar::Next);
  connect(one, &QPushButton::clicked, this, &FindBar::Replace);
  connect(all, &QPushButton::clicked, this, &FindBar::ReplaceAll);
  connect(leave, &QPushButton::clicked, this, &FindBar::Leave);
  hide();
}

void FindBar::Open(bool replace) {
  const QString selected = m_text->textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
    m_find->setText(selected);
  m_replaceRow->setVisible(replace);
  show();
  m_find->setFocus();
  m_find->selectAll();
  Mark();
}

void FindBar::Leave() {
  hide();
  m_text->MarkFound({}, {});
  m_text->setFocus();
}

void FindBar::keyPressEvent(QKeyEvent *event) {
  if (event->key() == Qt::Key_Escape) {
    Leave();
    return;
  }
  QFrame::keyPressEvent(event);
}

void FindBar::Mark() {
  const auto flags = m_case->isChecked() ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
  const int count = m_text->MarkFound(m_find->text(), flags);
  m_state->setText(m_find->text().isEmpty() ? QString()
                   : count == 0             ? tr("Not found.")
                   : count == 1             ? tr("Found once.")
                                            : tr("Found %1 times.").arg(count));
}

bool FindBar::FoundIsSelected() const {
  return m_text->textCursor().selectedText().compare(m_find->text(), m_case->isChecked() ? Qt::CaseSensitive
                                                                                         : Qt::CaseInsensitive) == 0;
}

void FindBar::Find(bool backward) {
  if (m_find->text().isEmpty()) {
    Open(m_replaceRow->isVisibleTo(this));
    return;
  }
  QTextDocument::FindFlags flags;
  flags.setFlag(QTextDocument::FindCaseSensitively, m_case->isChecked());
  flags.setFlag(QTextDocument::FindBackward, backward);
  Mark();
  if (m_text->find(m_find->text(), flags))
    return;
  const QTextCursor before = m_text->textCursor();
  QTextCursor from = before;
  from.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
  m_text->setTextCursor(from);
  if (m_text->find(m_find->text(), flags))
    m_state->setText(backward ? tr("On from the end.") : tr("On from the beginning."));
  else
    m_text->setTextCursor(before);
}

void FindBar::Replace() {
  if (m_find->text().isEmpty())
    return;
  if (FoundIsSelected())
    m_text->textCursor().insertText(m_with->text());
  Find(false);
}

void FindBar::ReplaceAll() {
  if (m_find->text().isEmpty())
    return;
  const auto flags = m_case->isChecked() ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
  QTextDocument *document = m_text->document();
  QTextCursor step(document);
  step.beginEditBlock();
  int count = 0;
  QTextCursor found(document);
  while (!(found = document->find(m_find->text(), found, flags)).isNull()) {
    found.insertText(m_with->text());
    ++count;
  }
  step.endEditBlock();
  Mark();
  m_state->setText(tr("Replaced: %1.").arg(count));
}

} // namespace tolmira
