#pragma once

#include <QString>
#include <QStringView>

namespace tolmira {

// One file of a version in memory, with what makes a chapter quick to find.
class VersionText {
public:
  VersionText() = default;
  explicit VersionText(QString text);

  bool IsEmpty() const { return m_text.isEmpty(); }
  const QString &Text() const { return m_text; }

  // Position behind the header ">book [chapter]", looked for from `start` on, any case, as whole words; -1 for none.
  qsizetype BehindHeader(const QString &book, const QString &chapter, qsizetype start) const;

private:
  QString m_text;
};

} // namespace tolmira
