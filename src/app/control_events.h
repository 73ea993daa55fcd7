#pragma once

#include <QJsonObject>

#include <functional>

#include "display/display_seams.h"
#include "foundation/seams.h"

namespace tolmira {

// Turns what goes to the screen and to the operator into events. It is made before the windows that report to it; the
// server listens once it stands.
class ControlEvents : public DisplayObserver {
public:
  void OnCommand(const QString &comando) override;
  void OnScript(const QString &page, const QString &script) override;
  void OnNavigate(const QString &page, const QString &url) override;
  void OnMedia(const QString &call) override;
  void OnMessage(const QString &title, const QString &text, const QStringList &buttons);

  std::function<void(const QJsonObject &event)> listener; // empty while nobody watches

private:
  void Tell(const QString &event, QJsonObject fields);
};

// Passes every question on to the real prompt, after telling of it.
class ObservedPrompt : public UserPrompt {
public:
  ObservedPrompt(UserPrompt &prompt, ControlEvents &events) : m_prompt(prompt), m_events(events) {}
  void Message(MessageKind kind, const QString &title, const QString &text) override;
  int Ask(const QString &title, const QString &text, const QStringList &buttons) override;
  std::optional<QString> AskText(const QString &title, const QString &text, const QString &now) override;
  QString OpenFile(const QString &title, const QString &folder, const QString &filter) override;
  QStringList OpenFiles(const QString &title, const QString &folder, const QString &filter) override;
  std::optional<qint32> PickColour(const QString &title, qint32 now) override;

private:
  UserPrompt &m_prompt;
  ControlEvents &m_events;
};

} // namespace tolmira
