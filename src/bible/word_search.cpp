#include "bible/word_search.h"

#include "bible/books.h"

#include <algorithm>

namespace tolmira {
namespace {

constexpr size_t MostWords = 64;
constexpr int NoWord = -1;

bool IsQuote(QChar character) {
  return QStringView(u"\"\u201C\u201D\u201E\u00AB\u00BB").contains(character);
}

// The letter under an accent; the character itself where it is made of more than a letter and accents.
QChar WithoutAccents(QChar character) {
  const QString parts = QString(character).normalized(QString::NormalizationForm_D);
  const bool accented = parts.size() > 1 && std::all_of(parts.begin() + 1, parts.end(), [](QChar part) {
                          return part.isMark() && part.combiningClass() != 0;
                        });
  return accented ? parts.front() : character;
}

char16_t FoldCharacter(QChar character) {
  if (character.category() == QChar::Other_Format)
    return FoldTable::Ignored;
  // Marks without a combining class are the vowels of scripts that write them so; they make another word.
  if (character.isMark())
    return character.combiningClass() != 0 ? FoldTable::Ignored : character.unicode();
  // Halves of a pair are compared as they stand.
  if (!character.isLetterOrNumber() && !character.isSurrogate())
    return FoldTable::Separator;
  return WithoutAccents(character).toCaseFolded().unicode();
}

} // namespace

char16_t FoldTable::Build(char16_t character) {
  auto page = std::make_unique<Page>();
  for (size_t low = 0; low < page->size(); ++low)
    (*page)[low] = FoldCharacter(QChar(static_cast<char16_t>((character & 0xFF00) | low)));
  m_pages[character >> 8] = std::move(page);
  return At(character);
}

WordSearch::WordSearch(VersionText velho, VersionText novo, const QString &query)
    : m_velho(std::move(velho)), m_novo(std::move(novo)) {
  ReadQuery(query);
  if (m_estado == QueryState::Ready)
    ChooseAnchor();
  m_chapters = Texto().Chapters(m_book);
}

void WordSearch::ReadQuery(const QString &query) {
  bool quoted = false;
  qsizetype start = 0;
  for (qsizetype at = 0; at <= query.size() && m_words.size() <= MostWords; ++at) {
    const bool end = at == query.size();
    const bool quote = !end && IsQuote(query.at(at));
    if (!end && !quote && (quoted || !query.at(at).isSpace()))
      continue;
    AddTerm(QStringView(query).sliced(start, at - start));
    start = at + 1;
    quoted ^= quote;
  }
  const bool letters =
      std::any_of(m_words.begin(), m_words.end(), [](const Word &word) { return word.sight.length > 1; });
  if (m_words.size() > MostWords)
    m_estado = QueryState::TooLong;
  else if (!m_words.empty())
    m_estado = letters ? QueryState::Ready : QueryState::TooShort;
}

// What stands between blanks or between quotes: one word, or several that must follow one another.
void WordSearch::AddTerm(QStringView term) {
  std::vector<int> phrase;
  Sight sight;
  for (QStringView word = NextWord(term, sight); !word.isEmpty(); word = NextWord(term, sight)) {
    int number = Find(word, sight);
    if (number == NoWord) {
      number = static_cast<int>(m_words.size());
      m_words.push_back({sight, Folded(word)});
      m_slots |= quint64(1) << sight.Slot();
    }
    if (m_words.size() > MostWords)
      return;
    phrase.push_back(number);
  }
  if (phrase.size() > 1)
    m_phrases.push_back(std::move(phrase));
}

// Takes the next word off the head of `text`; an empty one when there is none left.
QStringView WordSearch::NextWord(QStringView &text, Sight &sight) {
  const char16_t *const end = text.utf16() + text.size();
  const char16_t *at = text.utf16();
  while (at < end) {
    const char16_t *const start = at;
    sight = {};
    for (; at < end; ++at) {
      const char16_t folded = m_fold.At(*at);
      if (folded == FoldTable::Separator)
        break;
      if (folded == FoldTable::Ignored)
        continue;
      if (sight.length++ == 0)
        sight.first = folded;
      sight.last = folded;
    }
    if (sight.length > 0) {
      const QStringView word(start, at);
      text = QStringView(at, end);
      return word;
    }
    if (at < end)
      ++at;
  }
  text = {};
  return {};
}

QString WordSearch::Folded(QStringView word) {
  QString folded;
  for (const QChar character : word) {
    if (const char16_t letter = m_fold.At(character.unicode()); letter != FoldTable::Ignored)
      folded += QChar(letter);
  }
  return folded;
}

// True when `text` begins with the word, and the word ends there.
bool WordSearch::IsWord(QStringView text, const Word &word) {
  qsizetype same = 0;
  for (const QChar character : text) {
    const char16_t folded = m_fold.At(character.unicode());
    if (folded == FoldTable::Separator)
      break;
    if (folded == FoldTable::Ignored)
      continue;
    if (same == word.folded.size() || word.folded.at(same).unicode() != folded)
      return false;
    ++same;
  }
  return same == word.folded.size();
}

int WordSearch::Find(QStringView word, const Sight &sight) {
  if ((m_slots >> sight.Slot() & 1) == 0)
    return NoWord;
  for (size_t number = 0; number < m_words.size(); ++number) {
    if (m_words[number].sight == sight && IsWord(word, m_words[number]))
      return static_cast<int>(number);
  }
  return NoWord;
}

void WordSearch::ChooseAnchor() {
  const auto longest = std::max_element(m_words.begin(), m_words.end(),
                                        [](const Word &a, const Word &b) { return a.sight.length < b.sight.length; });
  m_anchor = static_cast<size_t>(longest - m_words.begin());
  for (size_t character = 0; character < m_leads.size(); ++character)
    m_leads[character] = m_fold.At(static_cast<char16_t>(character)) == longest->sight.first;
}

// Nearly all the time of a search is spent here. The loop looks at no more than whether a character can be the anchor's
// first letter: to follow where words begin and end would cost a branch a word that no processor foresees.
bool WordSearch::HasAnchor(QStringView verse) {
  const char16_t first = m_words[m_anchor].sight.first;
  const char16_t *const begin = verse.utf16();
  const char16_t *const end = begin + verse.size();
  for (const char16_t *at = begin; at < end; ++at) {
    if (!(*at < m_leads.size() ? m_leads[*at] : m_fold.At(*at) == first))
      continue;
    const char16_t *before = at;
    while (before > begin && m_fold.At(before[-1]) == FoldTable::Ignored)
      --before;
    const bool starts = before == begin || m_fold.At(before[-1]) == FoldTable::Separator;
    if (starts && IsWord(QStringView(at, end), m_words[m_anchor]))
      return true;
  }
  return false;
}

bool WordSearch::Matches(QStringView verse) {
  if (!HasAnchor(verse))
    return false;
  if (m_words.size() == 1 && m_phrases.empty())
    return true;
  const quint64 all = ~quint64(0) >> (MostWords - m_words.size());
  quint64 found = 0;
  m_order.clear();
  Sight sight;
  for (QStringView word = NextWord(verse, sight); !word.isEmpty(); word = NextWord(verse, sight)) {
    const int number = Find(word, sight);
    if (number != NoWord)
      found |= quint64(1) << number;
    if (!m_phrases.empty())
      m_order.push_back(number);
    else if (found == all)
      return true;
  }
  return found == all && std::all_of(m_phrases.begin(), m_phrases.end(), [this](const std::vector<int> &phrase) {
           return std::search(m_order.begin(), m_order.end(), phrase.begin(), phrase.end()) != m_order.end();
         });
}

qsizetype WordSearch::SearchChapter(int chapter, QList<SearchHit> &hits) {
  qsizetype length = 0;
  int verse = 0;
  for (const QStringView line : Texto().VerseLines(m_book, chapter)) {
    ++verse;
    length += line.size();
    if (const QStringView text = TextBehindNumber(line); Matches(text))
      hits.append({m_book, chapter, verse, text.toString()});
  }
  return length;
}

const VersionText &WordSearch::Texto() const {
  return m_book <= OldTestamentBooks ? m_velho : m_novo;
}

bool WordSearch::Next(qsizetype budget, QList<SearchHit> &hits) {
  if (m_estado != QueryState::Ready)
    return false;
  while (m_book <= BookCount) {
    while (!m_chapters.isEmpty()) {
      if (budget <= 0)
        return true;
      budget -= std::max<qsizetype>(SearchChapter(m_chapters.takeFirst(), hits), 1);
    }
    ++m_book;
    m_chapters = Texto().Chapters(m_book);
  }
  return false;
}

} // namespace tolmira
