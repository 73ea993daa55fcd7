#include "songs/song_name.h"

#include "foundation/file_name.h"
#include "foundation/text_utils.h"

namespace tolmira {

SongName TidyName(const SongName &name) {
  return {TidyFileName(name.title), TidyFileName(name.author)};
}

SongName SongNameOf(const QString &path) {
  QString name = FileNameOf(path);
  if (name.endsWith(u".txt", Qt::CaseInsensitive))
    name.chop(4);
  const qsizetype open = name.lastIndexOf(u'(');
  if (!name.endsWith(u')') || open < 0)
    return {name, {}};
  return {name.first(open).trimmed(), name.sliced(open + 1).chopped(1).trimmed()};
}

QString TitleOfFile(const SongName &name) {
  return name.author.isEmpty() ? name.title : QString(name.title + u" (" + name.author + u')');
}

QString ProblemOf(const SongName &name) {
  const QString file = TitleOfFile(name);
  const QStringList found = ForbiddenInFileName(file);
  if (found.size() == 1)
    return QStringLiteral("Title and author become the name of a file, which cannot hold the character  %1")
        .arg(found.first());
  if (!found.isEmpty())
    return QStringLiteral("Title and author become the name of a file, which cannot hold the characters  ") +
           found.join(QStringLiteral("  "));
  if (IsTooLongForFileName(file + u".txt"))
    return QStringLiteral("Title and author together are too long for the name of a file.");
  return {};
}

} // namespace tolmira
