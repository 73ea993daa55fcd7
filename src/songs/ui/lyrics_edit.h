#pragma once

#include "songs/spelling.h"

#include <QPlainTextEdit>
#include <QTextDocument>

namespace tolmira {

// The box for lyrics: plain text with its spelling underlined. Everything that is done to the text can be undone,
// whatever is coloured meanwhile. Positions outside are those in a text with CR LF line ends.
class LyricsEdit : public QPlainTextEdit {
  Q_OBJECT

public:
  LyricsEdit(Spelling &spelling, QWidget *parent);

  QString Text() const;
  qsizetype Caret() const;
  void GoTo(qsizetype position);
  void Load(const QString &text);     // nothing before it can be undone
  void TakeText(const QString &text); // as one step that can be undone

  void MarkLines(const QList<qsizetype> &positions); // the lines in which something is told
  // Marks every occurrence and returns how many there are; the empty term takes the marks away.
  int MarkFound(const QString &term, QTextDocument::FindFlags flags);

protected:
  void contextMenuEvent(QContextMenuEvent *event) override;

private:
  int PositionOf(qsizetype position) const; // in the document
  void ShowMarks();
  void OfferSpelling(QMenu *menu, const QTextCursor &word);

  Spelling &m_spelling;
  QList<QTextEdit::ExtraSelection> m_lines;
  QList<QTextEdit::ExtraSelection> m_found;
};

} // namespace tolmira
