#include "import/sword_library.h"
#include "import/version_files.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>
#include <cstdio>

namespace {

using namespace tolmira;

enum ExitCode { Good = 0, NotImported = 1, Usage = 2 };

void Print(FILE *where, const QString &line) {
  std::fputs(line.toLocal8Bit().constData(), where);
  std::fputc('\n', where);
}

int Fail(ExitCode code, const QString &what) {
  Print(stderr, QStringLiteral("tolmira-bible-import: ") + what);
  return code;
}

QString Count(int number) {
  return QLocale(QLocale::English).toString(number);
}

QString Named(int number, const QString &one, const QString &many) {
  return Count(number) + u' ' + (number == 1 ? one : many);
}

int List(const SwordLibrary &library) {
  const std::vector<SwordBible> bibles = library.Bibles();
  if (bibles.empty())
    Print(stderr, QStringLiteral("tolmira-bible-import: no Bible module is installed"));
  for (const SwordBible &bible : bibles)
    Print(stdout, bible.module + u'\t' + bible.language + u'\t' + bible.description);
  return Good;
}

// "3 verses are without text: A, B, C", with the first few by name; nothing when there are none.
void TellMissing(const QString &version, const QStringList &missing, const QString &one, const QString &many) {
  if (missing.isEmpty())
    return;
  constexpr int Shown = 12;
  QString line = version + QStringLiteral(": ") + Named(static_cast<int>(missing.size()), one, many) +
                 QStringLiteral(": ") + missing.mid(0, Shown).join(QStringLiteral(", "));
  if (missing.size() > Shown)
    line += QStringLiteral(" and %1 more").arg(missing.size() - Shown);
  Print(stdout, line);
}

int Import(const SwordLibrary &library, const QString &module, const QString &version, const QString &folder) {
  const QString fault = FaultOfShortName(version);
  if (!fault.isEmpty())
    return Fail(Usage, fault);

  ImportedBible bible;
  QString reason;
  if (!library.Read(module, bible, reason)) {
    QStringList installed;
    for (const SwordBible &present : library.Bibles())
      installed << present.module;
    if (!installed.contains(module))
      reason += installed.isEmpty() ? QStringLiteral("; no Bible is installed")
                                    : QStringLiteral("; installed are ") + installed.join(QStringLiteral(", "));
    return Fail(NotImported, reason);
  }
  int filler = 0;
  const QString failure = WriteVersion(bible, version, folder, filler);
  if (!failure.isEmpty())
    return Fail(NotImported, failure);

  Print(stdout,
        version + QStringLiteral(": ") + Named(bible.BookTotal(), QStringLiteral("book"), QStringLiteral("books")) +
            QStringLiteral(", ") + Named(bible.ChapterTotal(), QStringLiteral("chapter"), QStringLiteral("chapters")) +
            QStringLiteral(", ") + Named(bible.VerseTotal(), QStringLiteral("verse"), QStringLiteral("verses")));
  TellMissing(version, bible.MissingBooks(), QStringLiteral("book is not in the module"),
              QStringLiteral("books are not in the module"));
  TellMissing(version, bible.MissingChapters(), QStringLiteral("chapter is without text"),
              QStringLiteral("chapters are without text"));
  TellMissing(version, bible.MissingVerses(), QStringLiteral("verse is without text"),
              QStringLiteral("verses are without text"));
  TellMissing(version, bible.DamagedVerses(), QStringLiteral("verse holds a character that cannot be read"),
              QStringLiteral("verses hold characters that cannot be read"));
  if (filler > 0)
    Print(stdout,
          version + QStringLiteral(": %1 blanks stand before the first chapters, so that each book of this short "
                                   "version lies where it is looked for")
                        .arg(Count(filler)));
  return Good;
}

} // namespace

int main(int argc, char *argv[]) {
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("tolmira-bible-import"));
  QCoreApplication::setApplicationVersion(QStringLiteral(TOLMIRA_VERSION));

  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral(
      "Writes a Bible that is installed as a SWORD module into the version files OLD_NAME.txt and NEW_NAME.txt of a\n"
      "folder, as a rule the folder Bible of the program folder. Files of that name are replaced. What the module "
      "lacks\n"
      "is told and left out.\n\n"
      "Ends with 0 when the version was written, 1 when it was not, 2 for a mistake in the command."));
  const QCommandLineOption list(QStringLiteral("list"),
                                QStringLiteral("List the Bibles that are installed: module, language, description."));
  parser.addOption(list);
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("module"), QStringLiteral("The module, as --list names it."),
                               QStringLiteral("MODULE"));
  parser.addPositionalArgument(QStringLiteral("shortname"),
                               QStringLiteral("Name of the version in the program's menu: letters, digits, hyphens."),
                               QStringLiteral("SHORTNAME"));
  parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Where the files go."),
                               QStringLiteral("FOLDER"));
  if (!parser.parse(app.arguments()))
    return Fail(Usage, parser.errorText());
  if (parser.isSet(QStringLiteral("help")))
    parser.showHelp(Good);
  if (parser.isSet(QStringLiteral("version")))
    parser.showVersion();

  const QStringList words = parser.positionalArguments();
  if (parser.isSet(list) ? !words.isEmpty() : words.size() != 3)
    return Fail(Usage, QStringLiteral("give MODULE SHORTNAME FOLDER, or --list; --help tells more"));
  const SwordLibrary library;
  return parser.isSet(list) ? List(library) : Import(library, words[0], words[1], words[2]);
}
