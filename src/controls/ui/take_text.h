#pragma once

#include <QString>

class QLineEdit;
class QPlainTextEdit;

namespace tolmira {

// What stands in the box, lines ended by LF. The box's own answer has plain blanks for the no-break ones.
QString TypedText(const QPlainTextEdit &box);

// Puts the text into the box by changing only what differs, so that the caret stays where somebody types.
void TakeText(QPlainTextEdit *box, const QString &texto);
void TakeText(QLineEdit *box, const QString &texto); // the caret's place stays; without the focus it goes to the start

} // namespace tolmira
