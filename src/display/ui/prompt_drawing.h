#pragma once

#include <QObject>
#include <QPointer>

class QQuickWidget;

namespace tolmira {

// Has a page drawn as soon as the message loop has nothing else to do. By itself the engine's widget waits 5 ms after
// each change for further ones, which a verse that is to follow the key at once cannot afford.
class PromptDrawing : public QObject {
public:
  explicit PromptDrawing(QObject *parent);
  void Watch(QQuickWidget *widget); // replaces the one before

private:
  void DrawNow();
  QPointer<QQuickWidget> m_widget;
};

} // namespace tolmira
