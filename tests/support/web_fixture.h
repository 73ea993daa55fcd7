#pragma once

#include "display/ui/web_page_host.h"
#include "support/files.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <signal.h>
#include <unistd.h>

namespace tolmira::testing {

inline void WriteText(const QString &path, const QString &text) {
  WriteBytes(path, text.toUtf8());
}

// The value of an expression on the page, as JSON; "(no answer)" when none came.
inline QString Eval(PageObject *page, const QString &script) {
  QString result = QStringLiteral("(no answer)");
  bool answered = false;
  page->Evaluate(script, [&](const QString &json) {
    result = json;
    answered = true;
  });
  [&] { QTRY_VERIFY_WITH_TIMEOUT(answered, 20000); }();
  return result;
}

// The render processes below this one. The engine forks them from a helper, so the command line does not tell them
// apart from it: a renderer is a process whose parent's parent or grandparent is this one and which has no children.
inline QList<qint64> RenderProcesses() {
  struct Row {
    qint64 pid;
    qint64 parent;
    QByteArray command;
  };
  QList<Row> rows;
  for (const QString &entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
    bool isNumber = false;
    const qint64 pid = entry.toLongLong(&isNumber);
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    QFile command(QStringLiteral("/proc/%1/cmdline").arg(pid));
    if (!isNumber || !stat.open(QIODevice::ReadOnly) || !command.open(QIODevice::ReadOnly))
      continue;
    const QByteArray text = stat.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    if (fields.size() > 1 && fields[0] != "Z")
      rows.append({pid, fields[1].toLongLong(), command.readAll()});
  }
  const auto parentOf = [&](qint64 pid) -> qint64 {
    for (const Row &row : rows)
      if (row.pid == pid)
        return row.parent;
    return 0;
  };
  QList<qint64> renderers;
  for (const Row &row : rows) {
    if (!row.command.contains("--type=zygote") && !row.command.contains("--type=renderer"))
      continue;
    bool isOurs = false;
    for (qint64 up = row.parent; up > 1; up = parentOf(up))
      isOurs = isOurs || up == getpid();
    const bool hasChildren =
        std::any_of(rows.cbegin(), rows.cend(), [&](const Row &other) { return other.parent == row.pid; });
    const bool isHelper = parentOf(row.pid) == getpid() && row.command.contains("--type=zygote");
    if (isOurs && !hasChildren && !isHelper)
      renderers.append(row.pid);
  }
  return renderers;
}

inline void KillRenderProcesses() {
  for (const qint64 pid : RenderProcesses())
    kill(static_cast<pid_t>(pid), SIGKILL);
}

} // namespace tolmira::testing
