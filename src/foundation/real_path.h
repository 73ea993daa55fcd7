#pragma once

#include <QString>

namespace tolmira {

// A path in the form that the operating system opens. It can only be had from MapStoredPath, so that no stored path
// (with its backslashes and its careless case) reaches a system call by mistake.
class RealPath {
public:
  RealPath() = default;
  const QString &text() const { return m_text; }
  bool isEmpty() const { return m_text.isEmpty(); }

private:
  explicit RealPath(QString text) : m_text(std::move(text)) {}
  friend RealPath MapStoredPath(const QString &stored);

  QString m_text;
};

// The real file behind a stored path: "\" becomes "/", and each component that does not exist as it is written is
// looked up without regard to case (the data come from systems where case does not count). A component that exists in
// no case stays as written, so that the result can also name a file to be created. CR and LF are taken out. With
// several candidates that differ only in case, the exact one wins, then the first in name order.
RealPath MapStoredPath(const QString &stored);

// Whether two stored paths lead to one file: by the same name, in another case on a disk that knows none, or through a
// link.
bool IsSameFile(const QString &one, const QString &other);

} // namespace tolmira
