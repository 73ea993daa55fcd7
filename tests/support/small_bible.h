#pragma once

#include "bible/books.h"
#include "foundation/code_page.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

namespace tolmira::testing {

// Bible files for tests, in windows-1252. Chapters are added in the order in which they are to stand; in front of a
// book that would come before its SearchStart goes filler which no reference reaches.
class SmallBible {
public:
  explicit SmallBible(QByteArray lineEnd = "\r\n") : m_lineEnd(std::move(lineEnd)) {}

  // The verses get their numbers here.
  SmallBible &Chapter(int book, int chapter, const QStringList &verses) {
    QByteArray &file = book <= OldTestamentBooks ? m_old : m_new;
    if (const qsizetype missing = SearchStart(book) - file.size(); missing > 0)
      file += ">" + m_lineEnd + QByteArray(missing, 'x') + m_lineEnd;
    file += EncodeText(QString(u'>' + BookName(book) + u" [" + QString::number(chapter) + u']')) + m_lineEnd;
    for (qsizetype i = 0; i < verses.size(); ++i)
      file += QByteArray::number(i + 1) + ' ' + EncodeText(verses.at(i)) + m_lineEnd;
    return *this;
  }

  const QByteArray &Old() const { return m_old; }
  const QByteArray &New() const { return m_new; }

  // <programFolder>/Bible/OLD_<version>.txt and NEW_<version>.txt; a testament without a chapter gets no file.
  bool Write(const QString &programFolder, const QString &version) const {
    return WriteFile(programFolder, u"OLD_" + version, m_old) && WriteFile(programFolder, u"NEW_" + version, m_new);
  }

  static bool WriteFile(const QString &programFolder, const QString &name, const QByteArray &bytes) {
    if (bytes.isEmpty())
      return true;
    const QString folder = programFolder + QStringLiteral("/Bible");
    QFile file(folder + u'/' + name + u".txt");
    return QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
  }

private:
  QByteArray m_lineEnd;
  QByteArray m_old;
  QByteArray m_new;
};

// How many verses a chapter of WriteSmallBible has.
inline int SmallBibleVerses(int book, int chapter) {
  return book == 43 && chapter == 3 ? 36 : 4;
}

// "Text of John 3:16 in KJV."
inline QString SmallBibleVerse(int book, int chapter, int verse, const QString &version) {
  return QStringLiteral("Text of %1 %2:%3 in %4.").arg(BookName(book)).arg(chapter).arg(verse).arg(version);
}

// A version with every book and chapter, four verses each and the 36 of John 3: some 3 MB.
inline bool WriteSmallBible(const QString &programFolder, const QString &version) {
  SmallBible bible;
  for (int book = 1; book <= BookCount; ++book) {
    for (int chapter = 1; chapter <= ChapterCount(book); ++chapter) {
      QStringList verses;
      for (int verse = 1; verse <= SmallBibleVerses(book, chapter); ++verse)
        verses.append(SmallBibleVerse(book, chapter, verse, version));
      bible.Chapter(book, chapter, verses);
    }
  }
  return bible.Write(programFolder, version);
}

} // namespace tolmira::testing
