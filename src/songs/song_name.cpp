#include "songs/song_name.h"

#include "foundation/text_utils.h"

#include <QStringList>
#include <algorithm>

namespace tolmira {

namespace {

constexpr QStringView Forbidden = u"\\/:*?\"<>|";
// Bytes; below the 255 of common file systems, because a file that is being written bears a longer name for a moment.
constexpr qsizetype LongestFileName = 240;

QString WithoutControls(QString text) {
  std::replace_if(
      text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(u' '));
  return text.trimmed();
}

} // namespace

SongName TidyName(const SongName &name) {
  return {WithoutControls(name.title), WithoutControls(name.author)};
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
  QStringList found;
  for (const QChar c : Forbidden) {
    if (file.contains(c))
      found.append(c);
  }
  if (found.size() == 1)
    return QStringLiteral("Title and author become the name of a file, which cannot hold the character  %1")
        .arg(found.first());
  if (!found.isEmpty())
    return QStringLiteral("Title and author become the name of a file, which cannot hold the characters  ") +
           found.join(QStringLiteral("  "));
  if (QString(file + u".txt").toUtf8().size() > LongestFileName)
    return QStringLiteral("Title and author together are too long for the name of a file.");
  return {};
}

} // namespace tolmira
