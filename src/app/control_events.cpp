#include "app/control_events.h"

#include <QJsonArray>

namespace tolmira {

void ControlEvents::Tell(const QString &event, QJsonObject fields) {
  if (!listener)
    return;
  fields.insert(QStringLiteral("event"), event);
  listener(fields);
}

void ControlEvents::OnCommand(const QString &comando) {
  Tell(QStringLiteral("command"), {{QStringLiteral("text"), comando}});
}

void ControlEvents::OnScript(const QString &page, const QString &script) {
  Tell(QStringLiteral("script"), {{QStringLiteral("page"), page}, {QStringLiteral("text"), script}});
}

void ControlEvents::OnNavigate(const QString &page, const QString &url) {
  Tell(QStringLiteral("navigate"), {{QStringLiteral("page"), page}, {QStringLiteral("url"), url}});
}

void ControlEvents::OnMedia(const QString &call) {
  Tell(QStringLiteral("media"), {{QStringLiteral("call"), call}});
}

void ControlEvents::OnMessage(const QString &title, const QString &text, const QStringList &buttons) {
  Tell(QStringLiteral("message"), {{QStringLiteral("title"), title},
                                   {QStringLiteral("text"), text},
                                   {QStringLiteral("buttons"), QJsonArray::fromStringList(buttons)}});
}

void ObservedPrompt::Message(MessageKind kind, const QString &title, const QString &text) {
  m_events.OnMessage(title, text, {QStringLiteral("OK")});
  m_prompt.Message(kind, title, text);
}

int ObservedPrompt::Ask(const QString &title, const QString &text, const QStringList &buttons) {
  m_events.OnMessage(title, text, buttons);
  return m_prompt.Ask(title, text, buttons);
}

std::optional<QString> ObservedPrompt::AskText(const QString &title, const QString &text, const QString &now) {
  m_events.OnMessage(title, text, {QStringLiteral("OK"), QStringLiteral("Cancel")});
  return m_prompt.AskText(title, text, now);
}

QString ObservedPrompt::OpenFile(const QString &title, const QString &folder, const QString &filter) {
  m_events.OnMessage(title, filter, {});
  return m_prompt.OpenFile(title, folder, filter);
}

QStringList ObservedPrompt::OpenFiles(const QString &title, const QString &folder, const QString &filter) {
  m_events.OnMessage(title, filter, {});
  return m_prompt.OpenFiles(title, folder, filter);
}

std::optional<qint32> ObservedPrompt::PickColour(const QString &title, qint32 now) {
  m_events.OnMessage(title, QString(), {});
  return m_prompt.PickColour(title, now);
}

} // namespace tolmira
