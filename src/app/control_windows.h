#pragma once

#include <QJsonArray>
#include <QString>

#include "app/control_answer.h"

class QAction;
class QWidget;

namespace tolmira {

// The name by which the control interface calls a window or control: its object name, or its class where it has none.
QString NameOf(const QObject *object);

// An open window by name; a visible one goes before a hidden one, and the newest before older ones. Null for none.
QWidget *FindWindow(const QString &name);
// The window that has the user's hands tied: a popup or the topmost modal window; null for none.
QWidget *OpenBox();

QJsonArray ListWindows();
QJsonArray ListControls(const QWidget *window);

// What a name inside a window stands for: one of the two, or none.
struct FoundControl {
  QWidget *widget = nullptr;
  QAction *action = nullptr; // of a menu or tool bar of the window
};
FoundControl FindControl(QWidget *window, const QString &name);

// Presses a button of the open box: by its text without "&", or by its standard name ("Ok", "Yes", "Cancel" ...).
ControlAnswer AnswerWithButton(const QString &button);
// Gives the open file dialogue a path; an empty one gives up.
ControlAnswer AnswerWithPath(const QString &path);

// Writes a picture of the window, PNG, as one step.
ControlAnswer GrabWindow(QWidget *window, const QString &path);

} // namespace tolmira
