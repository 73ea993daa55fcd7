#include "songs/ui/reading_pane.h"

#include "controls/ui/palette.h"

#include <QScrollBar>
#include <QTextBlock>

namespace tolmira {

namespace {

constexpr qsizetype LetrasMostradas = 200000; // no song comes near it
constexpr int LugaresMarcados = 500;

} // namespace

QList<QPair<int, int>> PlacesOf(const QString &term, const QString &text, int most) {
  QList<QPair<int, int>> places;
  if (term.isEmpty())
    return places;
  // A letter that becomes two when it is lowered would shift all places behind it.
  const QString lower = text.toLower();
  const bool aligned = lower.size() == text.size();
  const QString wanted = term.toLower();
  for (qsizetype at = 0; places.size() < most;) {
    at = aligned ? lower.indexOf(wanted, at) : text.indexOf(term, at, Qt::CaseInsensitive);
    if (at < 0)
      break;
    const qsizetype length = aligned ? wanted.size() : term.size();
    places.append({static_cast<int>(at), static_cast<int>(length)});
    at += length;
  }
  return places;
}

ReadingPane::ReadingPane(QWidget *parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTabChangesFocus(true);
  setUndoRedoEnabled(false);
}

void ReadingPane::ShowText(const QString &text, const QString &term) {
  QString shown = text.left(LetrasMostradas);
  shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n').remove(QChar(u'\0'));
  if (shown != toPlainText())
    setPlainText(shown);

  QString wanted = term;
  wanted.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QList<QTextEdit::ExtraSelection> marks;
  for (const auto &[start, length] : PlacesOf(wanted, shown, LugaresMarcados)) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(document());
    mark.cursor.setPosition(start);
    mark.cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    mark.format.setBackground(QColor(cores::Held));
    mark.format.setForeground(QColor(cores::Desk));
    marks.append(mark);
  }
  setExtraSelections(marks);
  QTextCursor place(document());
  if (!marks.isEmpty())
    place.setPosition(marks.first().cursor.selectionStart());
  setTextCursor(place);
  // A place near the top is shown with the text's beginning.
  if (place.block().blockNumber() > 4)
    centerCursor();
  else
    verticalScrollBar()->setValue(0);
}

} // namespace tolmira
