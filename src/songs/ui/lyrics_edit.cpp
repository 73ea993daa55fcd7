#include "songs/ui/lyrics_edit.h"

#include "controls/ui/palette.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QSyntaxHighlighter>
#include <QTextBlock>

namespace tolmira {

namespace {

constexpr int LongestCheckedLine = 2000; // characters; a longer one is no line of a song
constexpr int MostMarks = 500;

class SpellingMarks : public QSyntaxHighlighter {
public:
  SpellingMarks(Spelling &spelling, QTextDocument *document) : QSyntaxHighlighter(document), m_spelling(spelling) {
    m_wrong.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    m_wrong.setUnderlineColor(QColor(cores::Off));
    connect(&spelling, &Spelling::Answered, this, &QSyntaxHighlighter::rehighlight);
    connect(&spelling, &Spelling::LanguageChanged, this, &QSyntaxHighlighter::rehighlight);
  }

protected:
  void highlightBlock(const QString &line) override {
    if (line.size() > LongestCheckedLine || m_spelling.Language().isEmpty())
      return;
    for (const WordPlace &place : WordsOf(line)) {
      if (m_spelling.Look(line.sliced(place.from, place.length)) == Spelling::Verdict::Wrong)
        setFormat(static_cast<int>(place.from), static_cast<int>(place.length), m_wrong);
    }
  }

private:
  Spelling &m_spelling;
  QTextCharFormat m_wrong;
};

bool IsLineEnd(QChar c) {
  return c == QChar::ParagraphSeparator || c == QChar::LineSeparator;
}

// The document as it is; its own conversion to plain text would turn every no-break space into a common one.
QString WithLineEnds(const QString &raw) {
  QString text;
  text.reserve(raw.size() + raw.size() / 16);
  for (const QChar c : raw) {
    if (IsLineEnd(c))
      text += QStringLiteral("\r\n");
    else
      text += c;
  }
  return text;
}

// The word round a place in the document; without a selection where there is none.
QTextCursor WordAt(QTextCursor cursor) {
  const QTextBlock block = cursor.block();
  const int column = cursor.positionInBlock();
  cursor.clearSelection();
  for (const WordPlace &place : WordsOf(block.text())) {
    if (column < place.from || column > place.from + place.length)
      continue;
    cursor.setPosition(block.position() + static_cast<int>(place.from));
    cursor.setPosition(block.position() + static_cast<int>(place.from + place.length), QTextCursor::KeepAnchor);
    break;
  }
  return cursor;
}

} // namespace

LyricsEdit::LyricsEdit(Spelling &spelling, QWidget *parent) : QPlainTextEdit(parent), m_spelling(spelling) {
  setTabChangesFocus(true);
  setLineWrapMode(QPlainTextEdit::WidgetWidth);
  new SpellingMarks(spelling, document());
}

QString LyricsEdit::Text() const {
  return WithLineEnds(document()->toRawText());
}

qsizetype LyricsEdit::Caret() const {
  return WithLineEnds(document()->toRawText().left(textCursor().position())).size();
}

int LyricsEdit::PositionOf(qsizetype position) const {
  const QString raw = document()->toRawText();
  int at = 0;
  for (qsizetype seen = 0; at < raw.size() && seen < position; ++at)
    seen += IsLineEnd(raw[at]) ? 2 : 1;
  return at;
}

void LyricsEdit::GoTo(qsizetype position) {
  QTextCursor cursor = textCursor();
  cursor.setPosition(PositionOf(position));
  setTextCursor(cursor);
  ensureCursorVisible();
}

void LyricsEdit::Load(const QString &text) {
  setPlainText(text);
}

// Only what differs is replaced, so that the caret stays where the operator works.
void LyricsEdit::TakeText(const QString &text) {
  const QString raw = document()->toRawText();
  QString wanted = text;
  wanted.replace(QStringLiteral("\r\n"), QString(QChar(QChar::ParagraphSeparator)));
  if (wanted == raw)
    return;
  const qsizetype shorter = std::min(raw.size(), wanted.size());
  qsizetype same = 0;
  while (same < shorter && raw[same] == wanted[same])
    ++same;
  qsizetype sameEnd = 0;
  while (sameEnd < shorter - same && raw[raw.size() - 1 - sameEnd] == wanted[wanted.size() - 1 - sameEnd])
    ++sameEnd;
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  cursor.setPosition(static_cast<int>(same));
  cursor.setPosition(static_cast<int>(raw.size() - sameEnd), QTextCursor::KeepAnchor);
  cursor.insertText(wanted.sliced(same, wanted.size() - same - sameEnd));
  cursor.endEditBlock();
}

void LyricsEdit::MarkLines(const QList<qsizetype> &positions) {
  m_lines.clear();
  for (const qsizetype position : positions) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(document());
    mark.cursor.setPosition(PositionOf(position));
    QColor colour(cores::Held);
    colour.setAlpha(40);
    mark.format.setBackground(colour);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    m_lines.append(mark);
  }
  ShowMarks();
}

int LyricsEdit::MarkFound(const QString &term, QTextDocument::FindFlags flags) {
  m_found.clear();
  int count = 0;
  if (!term.isEmpty()) {
    QTextCursor cursor(document());
    while (!(cursor = document()->find(term, cursor, flags & ~QTextDocument::FindFlags(QTextDocument::FindBackward)))
                .isNull()) {
      if (++count > MostMarks)
        continue;
      QTextEdit::ExtraSelection mark;
      mark.cursor = cursor;
      mark.format.setBackground(QColor(cores::Selection));
      m_found.append(mark);
    }
  }
  ShowMarks();
  return count;
}

void LyricsEdit::ShowMarks() {
  setExtraSelections(m_lines + m_found);
}

void LyricsEdit::contextMenuEvent(QContextMenuEvent *event) {
  QMenu *menu = createStandardContextMenu(event->pos());
  menu->setObjectName(QStringLiteral("MnTexto"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const QTextCursor word = WordAt(byKey ? textCursor() : cursorForPosition(event->pos()));
  if (word.hasSelection() && m_spelling.Look(word.selectedText()) == Spelling::Verdict::Wrong)
    OfferSpelling(menu, word);
  menu->popup(byKey ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
  event->accept();
}

// A dictionary may take a second to answer, so the menu opens at once and is completed when the answer is there.
void LyricsEdit::OfferSpelling(QMenu *menu, const QTextCursor &word) {
  const QString wrong = word.selectedText();
  QAction *first = menu->actions().value(0);
  auto *wait = new QAction(tr("Looking for suggestions…"), menu);
  wait->setEnabled(false);
  auto *accept = new QAction(tr("“%1” is right").arg(wrong), menu);
  connect(accept, &QAction::triggered, this, [this, wrong] { m_spelling.Accept(wrong); });
  menu->insertActions(first, {wait, accept});
  menu->insertSeparator(first);
  m_spelling.Suggest(wrong, [guard = QPointer<LyricsEdit>(this), open = QPointer<QMenu>(menu),
                             waiting = QPointer<QAction>(wait), word, wrong](const QStringList &suggestions) {
    if (!guard || !open || !waiting)
      return;
    for (const QString &suggestion : suggestions) {
      auto *take = new QAction(suggestion, open);
      QObject::connect(take, &QAction::triggered, guard.data(), [word, wrong, suggestion] {
        QTextCursor place = word;
        if (place.selectedText() == wrong)
          place.insertText(suggestion);
      });
      open->insertAction(waiting, take);
    }
    if (suggestions.isEmpty())
      waiting->setText(tr("No suggestions"));
    else
      delete waiting.data();
  });
}

} // namespace tolmira
