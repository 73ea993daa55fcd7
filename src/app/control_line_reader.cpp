#include "app/control_line_reader.h"

namespace tolmira {

QList<LineReader::Line> LineReader::Feed(const QByteArray &bytes) {
  QList<Line> lines;
  qsizetype from = 0;
  while (from < bytes.size()) {
    const qsizetype end = bytes.indexOf('\n', from);
    const qsizetype upTo = end < 0 ? bytes.size() : end;
    if (!m_dropping) {
      m_rest.append(bytes.constData() + from, upTo - from);
      if (m_rest.size() > Limit) {
        m_rest.clear();
        m_dropping = true;
        lines.append({QByteArray(), true});
      }
    }
    if (end < 0)
      break;
    if (!m_dropping) {
      if (m_rest.endsWith('\r'))
        m_rest.chop(1);
      lines.append({m_rest, false});
    }
    m_rest.clear();
    m_dropping = false;
    from = end + 1;
  }
  return lines;
}

} // namespace tolmira
