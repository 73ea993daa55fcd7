#pragma once

#include <QString>

namespace tolmira {

// The program folder, written <app> in messages and comments: the one folder that holds the operator's data. Its text
// never ends in a separator; stored paths are formed by concatenation with a literal that begins with a backslash.
class AppFolder {
public:
  explicit AppFolder(QString path);

  const QString &path() const { return m_path; }
  // <app> + literal, for example At(u"\\Data\\Config.dat").
  QString At(QStringView literal) const { return m_path + literal; }

  // Portable path tokens: "(APP)" stands for <app> inside stored references.
  QString ExpandAppPath(const QString &text) const;
  QString CompactAppPath(const QString &text) const;

private:
  QString m_path;
};

// The value of the environment variable "TEMP" without a trailing separator; where that is not set, a private folder
// of the user (mode 0700) in $XDG_RUNTIME_DIR or else in the user's cache, made by the first call.
QString TempFolder();

} // namespace tolmira
