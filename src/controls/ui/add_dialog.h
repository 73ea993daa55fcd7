#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace tolmira {

// What the dialogs that put entries into the active agenda have in common.

// The button that does it, with the agenda's title in its caption.
QString IncludeCaption(QString agendaTitle);
// Label2: what was added last, or why nothing was.
QLabel *NewAddedLabel(QWidget *parent);

} // namespace tolmira
