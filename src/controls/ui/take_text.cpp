#include "controls/ui/take_text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

namespace tolmira {

QString TypedText(const QPlainTextEdit &box) {
  QString texto = box.document()->toRawText();
  for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
    texto.replace(lineEnd, u'\n');
  return texto;
}

void TakeText(QPlainTextEdit *box, const QString &texto) {
  const QString now = TypedText(*box);
  if (now == texto)
    return;
  qsizetype start = 0;
  while (start < now.size() && start < texto.size() && now[start] == texto[start])
    ++start;
  qsizetype end = 0;
  while (end < now.size() - start && end < texto.size() - start &&
         now[now.size() - 1 - end] == texto[texto.size() - 1 - end])
    ++end;
  QTextCursor cursor(box->document());
  cursor.setPosition(static_cast<int>(start));
  cursor.setPosition(static_cast<int>(now.size() - end), QTextCursor::KeepAnchor);
  cursor.insertText(texto.mid(start, texto.size() - start - end));
}

void TakeText(QLineEdit *box, const QString &texto) {
  if (box->text() == texto)
    return;
  const int caret = box->cursorPosition();
  box->setText(texto);
  box->setCursorPosition(box->hasFocus() ? caret : 0);
}

} // namespace tolmira
