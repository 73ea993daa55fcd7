#pragma once

#include "foundation/seams.h"

#include <QPointer>
#include <QWidget>

namespace tolmira {

// Boxes of the toolkit, never the desktop's own, so that they look alike everywhere and remote control can reach them:
// a box has the object name "MessageBox", a box for a line of text "TextDialog" with the field "Text", a file
// dialogue "FileDialog", a colour dialogue "ColorDialog" with the field
// "Html". They open over the active window, or over `parent` when the program has none.
class QtUserPrompt : public UserPrompt {
public:
  explicit QtUserPrompt(QWidget *parent = nullptr) : m_parent(parent) {}

  void Message(MessageKind kind, const QString &title, const QString &text) override;
  int Ask(const QString &title, const QString &text, const QStringList &buttons) override;
  std::optional<QString> AskText(const QString &title, const QString &text, const QString &now) override;
  QString OpenFile(const QString &title, const QString &folder, const QString &filter) override;
  QStringList OpenFiles(const QString &title, const QString &folder, const QString &filter) override;
  std::optional<qint32> PickColour(const QString &title, qint32 now) override;

private:
  QWidget *ParentNow() const;

  QPointer<QWidget> m_parent;
};

} // namespace tolmira
