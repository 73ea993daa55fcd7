#pragma once

#include <QList>
#include <QPair>
#include <QStringList>

#include <utility>

#include "display/display_seams.h"

namespace tolmira::testing {

// Keeps what was asked of a page. With a journal, every call is a line in it too, so that a test sees the order of
// calls on several objects.
class RecordingPage : public PageObject {
public:
  explicit RecordingPage(QStringList *journal = nullptr, QString name = QStringLiteral("WV"))
      : m_journal(journal), m_name(std::move(name)) {}

  void Navigate(const QString &url, int timeoutSeconds) override {
    urls.append(url);
    Note(QStringLiteral("Navigate %1 %2s").arg(url).arg(timeoutSeconds));
  }
  void ExecuteScript(const QString &script) override {
    scripts.append(script);
    Note(script);
  }
  void SetPageProperty(const QString &path, const QString &value) override {
    properties.append({path, value});
    Note(path + u" = " + value);
  }
  void SetZoomFactor(double factor) override {
    zoom = factor;
    Note(QStringLiteral("zoom %1").arg(factor));
  }
  void Evaluate(const QString &script, std::function<void(const QString &json)> onResult) override {
    evaluated.append(script);
    if (answerLater)
      pending.append(std::move(onResult));
    else
      onResult(answer);
  }
  void Answer() { // what was asked meanwhile
    for (const auto &onResult : std::exchange(pending, {}))
      onResult(answer);
  }

  QStringList urls;
  QStringList scripts;
  QList<QPair<QString, QString>> properties;
  QStringList evaluated;
  bool answerLater = false;
  QList<std::function<void(const QString &)>> pending;
  QString answer = QStringLiteral("null"); // what Evaluate hands over
  double zoom = 1;

private:
  void Note(const QString &call) {
    if (m_journal)
      m_journal->append(m_name + u": " + call);
  }
  QStringList *m_journal;
  QString m_name;
};

} // namespace tolmira::testing
