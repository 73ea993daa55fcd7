#include "bible/books.h"

#include "foundation/text_utils.h"

#include <array>

namespace tolmira {
namespace {

struct Book {
  QStringView name;
  QStringView abbreviation;
  int hint; // where the first chapter lies in the file of a typical version, in characters
  int chapters;
};

constexpr std::array<Book, BookCount> Books = {{
    {u"Genesis", u"Gn", 0, 50},
    {u"Exodus", u"Êx", 181869, 40},
    {u"Leviticus", u"Lv", 340766, 27},
    {u"Numbers", u"Nm", 457875, 36},
    {u"Deuteronomy", u"Dt", 621590, 34},
    {u"Joshua", u"Js", 756985, 24},
    {u"Judges", u"Jz", 848921, 21},
    {u"Ruth", u"Rt", 942089, 4},
    {u"I Samuel", u"1Sm", 954255, 31},
    {u"II Samuel", u"2Sm", 1077774, 24},
    {u"I Kings", u"1Rs", 1178480, 22},
    {u"II Kings", u"2Rs", 1298643, 25},
    {u"I Chronicles", u"1Cr", 1412458, 29},
    {u"II Chronicles", u"2Cr", 1516875, 36},
    {u"Ezra", u"Ed", 1648765, 10},
    {u"Nehemiah", u"Ne", 1687206, 13},
    {u"Esther", u"Et", 1742172, 10},
    {u"Job", u"Jó", 1771082, 42},
    {u"Psalms", u"Sl", 1865171, 150},
    {u"Proverbs", u"Pv", 2089255, 31},
    {u"Ecclesiastes", u"Ec", 2169935, 12},
    {u"Song of Solomon", u"Ct", 2198254, 8},
    {u"Isaiah", u"Is", 2212544, 66},
    {u"Jeremiah", u"Jr", 2398914, 52},
    {u"Lamentations of Jeremiah", u"Lm", 2611536, 5},
    {u"Ezekiel", u"Ez", 2629504, 48},
    {u"Daniel", u"Dn", 2824169, 12},
    {u"Hosea", u"Os", 2883593, 14},
    {u"Joel", u"Jl", 2909700, 3},
    {u"Amos", u"Am", 2919768, 9},
    {u"Obadiah", u"Ob", 2940283, 1},
    {u"Jonah", u"Jn", 2943489, 4},
    {u"Micah", u"Mq", 2950135, 7},
    {u"Nahum", u"Na", 2965599, 3},
    {u"Habakkuk", u"Hc", 2972157, 3},
    {u"Zephaniah", u"Sf", 2979711, 3},
    {u"Haggai", u"Ag", 2987927, 2},
    {u"Zechariah", u"Zc", 2993543, 14},
    {u"Malachi", u"Ml", 3024437, 4},
    {u"Matthew", u"Mt", 0, 28},
    {u"Mark", u"Mc", 112700, 16},
    {u"Luke", u"Lc", 186841, 24},
    {u"John", u"Jo", 313259, 21},
    {u"The Acts of the Apostles", u"At", 407441, 28},
    {u"Romans", u"Rm", 531444, 16},
    {u"I Corinthians", u"1Co", 581776, 16},
    {u"II Corinthians", u"2Co", 631271, 13},
    {u"Galatians", u"Gl", 663942, 6},
    {u"Ephesians", u"Ef", 680467, 6},
    {u"Philippians", u"Fp", 696717, 4},
    {u"Colossians", u"Cl", 708818, 4},
    {u"I Thessalonians", u"1Ts", 719853, 5},
    {u"II Thessalonians", u"2Ts", 730293, 3},
    {u"I Timothy", u"1Tm", 735812, 6},
    {u"II Timothy", u"2Tm", 748713, 4},
    {u"Titus", u"Tt", 757794, 3},
    {u"Philemon", u"Fm", 763167, 1},
    {u"Hebrews", u"Hb", 765492, 13},
    {u"James", u"Tg", 803069, 5},
    {u"I Peter", u"1Pe", 815339, 5},
    {u"II Peter", u"2Pe", 828830, 3},
    {u"I John", u"1Jo", 837556, 5},
    {u"II John", u"2Jo", 849976, 1},
    {u"III John", u"3Jo", 851511, 1},
    {u"Jude", u"Jd", 853104, 1},
    {u"Revelation", u"Ap", 856740, 22},
}};

const Book *Find(int number) {
  return number >= 1 && number <= BookCount ? &Books[static_cast<size_t>(number - 1)] : nullptr;
}

} // namespace

int BookNumber(const QString &reference) {
  for (int number = 1; number <= BookCount; ++number) {
    const QStringView name = Find(number)->name;
    if (reference.size() <= name.size() || reference.at(name.size()) != u' ')
      continue;
    const QString head = reference.left(name.size());
    if (name.compare(head, Qt::CaseInsensitive) == 0 || FoldText(head) == FoldText(name.toString()))
      return number;
  }
  return 0;
}

QString BookName(int number) {
  const Book *book = Find(number);
  return book ? book->name.toString() : QString();
}

QString BookAbbreviation(int number) {
  const Book *book = Find(number);
  return book ? book->abbreviation.toString() : QString();
}

int BookOfName(QStringView name) {
  if (name.isEmpty())
    return 0;
  // A file that is full of headers is read while somebody waits: the first letter sorts nearly all names out.
  const QChar first = name.front().toCaseFolded().toUpper();
  for (int number = 1; number <= BookCount; ++number) {
    const QStringView candidate = Find(number)->name;
    if (candidate.front() == first && candidate.size() == name.size() &&
        candidate.compare(name, Qt::CaseInsensitive) == 0)
      return number;
  }
  return 0;
}

QString BookFromPrefix(const QString &text) {
  const QString prefix = text.trimmed();
  for (const Book &book : Books) {
    const QString name = book.name.toString();
    if (FoldText(name.left(prefix.size())).toUpper() == prefix.toUpper())
      return name;
  }
  return {};
}

int SearchStart(int number) {
  const Book *book = Find(number);
  return book ? static_cast<int>(book->hint * 0.7) : 0;
}

int ChapterCount(int number) {
  const Book *book = Find(number);
  return book ? book->chapters : 0;
}

} // namespace tolmira
