#include "import/version_files.h"

#include "bible/books.h"
#include "foundation/code_page.h"
#include "foundation/text_file.h"

#include <QDir>
#include <QFileInfo>

namespace tolmira {

namespace {

const QString LineEnd = QStringLiteral("\r\n");

struct Body {
  QString text;
  int lack = 0; // characters by which the book that lies farthest before its search start lies before it
};

Body ComposeBooks(const ImportedBible &bible, int first, int last) {
  Body body;
  qsizetype lines = 0;
  for (int book = first; book <= last; ++book) {
    // A reader may keep line ends as one character, so they count as one here.
    const qsizetype place = body.text.size() - lines;
    if (!bible.Book(book).empty())
      body.lack = std::max(body.lack, SearchStart(book) - static_cast<int>(place));
    for (const auto &[chapter, verses] : bible.Book(book)) {
      body.text += u'>' + BookName(book) + QStringLiteral(" [") + QString::number(chapter) + u']' + LineEnd;
      int number = 0;
      for (const QString &verse : verses)
        body.text += QString::number(++number) + u' ' + verse + LineEnd;
      lines += 1 + verses.size();
    }
  }
  return body;
}

QString Filler(int characters) {
  constexpr int LineLength = 80;
  QString filler;
  for (int left = characters; left > 0; left -= LineLength)
    filler += QString(LineLength - 1, u' ') + LineEnd;
  return filler;
}

} // namespace

VersionFileText ComposeVersionFile(const ImportedBible &bible, Testament testament) {
  const bool old = testament == Testament::Old;
  const Body body = ComposeBooks(bible, old ? 1 : OldTestamentBooks + 1, old ? OldTestamentBooks : BookCount);
  return {Filler(body.lack) + body.text, body.lack};
}

QString FaultOfShortName(const QString &name) {
  if (name.isEmpty() || name.size() > 20)
    return QStringLiteral("a short name has 1 to 20 characters");
  for (const QChar character : name)
    if (!character.isLetterOrNumber() && character != u'-')
      return QStringLiteral("a short name is made of letters, digits and hyphens");
  if (name.contains(u"old", Qt::CaseInsensitive))
    return QStringLiteral("a short name cannot hold \"OLD\", by which the two files of a version are told apart");
  return {};
}

QString WriteVersion(const ImportedBible &bible, const QString &shortName, const QString &folder, int &filler) {
  if (!QDir().mkpath(folder) || !QFileInfo(folder).isDir())
    return QStringLiteral("the folder %1 cannot be made").arg(QDir::toNativeSeparators(folder));
  filler = 0;
  for (const Testament testament : {Testament::New, Testament::Old}) {
    const VersionFileText file = ComposeVersionFile(bible, testament);
    filler += file.filler;
    const QString name = (testament == Testament::Old ? QStringLiteral("OLD_") : QStringLiteral("NEW_")) + shortName +
                         QStringLiteral(".txt");
    if (!WriteFileAtomically(QDir(folder).filePath(name), EncodeText(file.text)))
      return QStringLiteral("the file %1 cannot be written in %2").arg(name, QDir::toNativeSeparators(folder));
  }
  return {};
}

} // namespace tolmira
