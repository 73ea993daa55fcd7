#pragma once

#include <QByteArray>
#include <QList>

namespace tolmira {

// Cuts the bytes of a connection into lines. A line that grows beyond the limit is reported once, without its bytes,
// and dropped up to its end.
class LineReader {
public:
  static constexpr qsizetype Limit = 1024 * 1024; // bytes of one line

  struct Line {
    QByteArray bytes; // without line end; may be empty
    bool tooLong = false;
  };
  QList<Line> Feed(const QByteArray &bytes);

private:
  QByteArray m_rest;
  bool m_dropping = false;
};

} // namespace tolmira
