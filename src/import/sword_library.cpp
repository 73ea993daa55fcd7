#include "import/sword_library.h"

#include "import/verse_markup.h"

#include <QHash>
#include <cstdio>
#include <encfiltmgr.h>
#include <fcntl.h>
#include <swmgr.h>
#include <swmodule.h>
#include <unistd.h>
#include <versekey.h>

namespace tolmira {

namespace {

// The library's names of the books, by number.
constexpr const char *BookIds[] = {"Gen",  "Exod",   "Lev",    "Num",   "Deut", "Josh",  "Judg", "Ruth", "1Sam", "2Sam",
                                   "1Kgs", "2Kgs",   "1Chr",   "2Chr",  "Ezra", "Neh",   "Esth", "Job",  "Ps",   "Prov",
                                   "Eccl", "Song",   "Isa",    "Jer",   "Lam",  "Ezek",  "Dan",  "Hos",  "Joel", "Amos",
                                   "Obad", "Jonah",  "Mic",    "Nah",   "Hab",  "Zeph",  "Hag",  "Zech", "Mal",  "Matt",
                                   "Mark", "Luke",   "John",   "Acts",  "Rom",  "1Cor",  "2Cor", "Gal",  "Eph",  "Phil",
                                   "Col",  "1Thess", "2Thess", "1Tim",  "2Tim", "Titus", "Phlm", "Heb",  "Jas",  "1Pet",
                                   "2Pet", "1John",  "2John",  "3John", "Jude", "Rev"};
static_assert(std::size(BookIds) == 66);

QHash<QByteArray, int> NumbersOfBooks() {
  QHash<QByteArray, int> numbers;
  for (const char *id : BookIds)
    numbers.insert(id, static_cast<int>(numbers.size()) + 1);
  return numbers;
}

bool IsBible(const sword::SWModule &module) {
  return qstrcmp(module.getType(), sword::SWMgr::MODTYPE_BIBLES) == 0;
}

VerseMarkup MarkupOf(const sword::SWModule &module) {
  switch (module.getMarkup()) {
  case sword::FMT_OSIS:
  case sword::FMT_THML:
  case sword::FMT_TEI:
    return VerseMarkup::Elements;
  case sword::FMT_GBF:
    return VerseMarkup::Gbf;
  default:
    return VerseMarkup::None;
  }
}

// The library prints a line for each verse that it cannot read, tens of thousands for a damaged module. While this
// lives they go nowhere; what could not be read is counted instead.
class NoErrorOutput {
public:
  NoErrorOutput() : m_before(dup(STDERR_FILENO)) {
    std::fflush(stderr);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (m_before >= 0 && nowhere >= 0)
      dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0)
      close(nowhere);
  }
  ~NoErrorOutput() {
    std::fflush(stderr);
    if (m_before < 0)
      return;
    dup2(m_before, STDERR_FILENO);
    close(m_before);
  }
  NoErrorOutput(const NoErrorOutput &) = delete;
  NoErrorOutput &operator=(const NoErrorOutput &) = delete;

private:
  int m_before;
};

} // namespace

// The filter manager, which the library takes over, turns every module's texts to UTF-8.
SwordLibrary::SwordLibrary()
    : m_library(std::make_unique<sword::SWMgr>(new sword::EncodingFilterMgr(sword::ENC_UTF8))) {}

SwordLibrary::~SwordLibrary() = default;

std::vector<SwordBible> SwordLibrary::Bibles() const {
  std::vector<SwordBible> bibles;
  for (const auto &[name, module] : m_library->getModules())
    if (IsBible(*module))
      bibles.push_back({QString::fromUtf8(name.c_str()), QString::fromUtf8(module->getDescription()),
                        QString::fromUtf8(module->getLanguage())});
  return bibles;
}

bool SwordLibrary::Read(const QString &name, ImportedBible &bible, QString &reason) const {
  sword::SWModule *module = m_library->getModule(name.toUtf8().constData());
  if (!module) {
    reason = QStringLiteral("there is no SWORD module '%1' here").arg(name);
    return false;
  }
  if (!IsBible(*module)) {
    reason = QStringLiteral("the module %1 is no Bible (it is of the kind '%2')")
                 .arg(name, QString::fromUtf8(module->getType()));
    return false;
  }
  const char *cipher = module->getConfigEntry("CipherKey");
  if (cipher && !*cipher) {
    reason = QStringLiteral("the module %1 is locked, and its key is not in its configuration").arg(name);
    return false;
  }
  const std::unique_ptr<sword::SWKey> made(module->createKey());
  auto *key = dynamic_cast<sword::VerseKey *>(made.get());
  if (!key) {
    reason = QStringLiteral("the module %1 is not kept by verses").arg(name);
    return false;
  }

  static const QHash<QByteArray, int> numbers = NumbersOfBooks();
  const VerseMarkup markup = MarkupOf(*module);
  const NoErrorOutput quiet;
  key->setIntros(false);
  for (key->setPosition(sword::TOP); !key->popError(); key->increment()) {
    const int book = numbers.value(QByteArray(key->getOSISBookName()));
    if (book == 0)
      continue;
    module->setKey(*key);
    bible.Put(book, key->getChapter(), key->getVerse(), PlainVerse(QString::fromUtf8(module->getRawEntry()), markup));
  }
  if (bible.BookTotal() == 0) {
    reason = QStringLiteral("no verse of the module %1 can be read").arg(name);
    return false;
  }
  return true;
}

} // namespace tolmira
