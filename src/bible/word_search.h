#pragma once

#include "bible/version_text.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <vector>

namespace tolmira {

struct SearchHit {
  int book = 0; // 1 to 66
  int chapter = 0;
  int verse = 0;
  QString text; // of the verse, without its number
};

// What a typed query is good for. Too short is one whose words have a single letter each, too long one of more than 64
// different words; neither finds anything.
enum class QueryState { Empty, TooShort, TooLong, Ready };

// Characters as a search compares them: without case and accents. Made page by page for the scripts that come up.
class FoldTable {
public:
  static constexpr char16_t Separator = 0; // punctuation, blanks, signs: what stands between words
  static constexpr char16_t Ignored = 1;   // combining accents and invisible characters inside a word

  char16_t At(char16_t character) {
    const std::unique_ptr<Page> &page = m_pages[character >> 8];
    return page ? (*page)[character & 0xFF] : Build(character);
  }

private:
  using Page = std::array<char16_t, 256>;
  char16_t Build(char16_t character);

  std::array<std::unique_ptr<Page>, 256> m_pages;
};

// A search by words over a version: every word must occur in the verse as a whole word, in any order; words in double
// quotes must follow one another, whatever punctuation stands between them, and so must the parts of a word that holds
// punctuation ("father's"). Hits come in the order of the Bible, and each is the verse that a reference with its
// numbers fetches. Works in slices, so that the window lists results as they are found and stays answerable; to give it
// up is to drop it. It keeps the texts that it was given, also when the versions are scanned anew meanwhile.
class WordSearch {
public:
  WordSearch(VersionText velho, VersionText novo, const QString &query);

  QueryState Estado() const { return m_estado; }
  // Goes on through about so many characters, a chapter at least, and appends what it finds. False when it has come to
  // the end (at once for a query that is not ready).
  bool Next(qsizetype budget, QList<SearchHit> &hits);
  int LivroAtual() const { return m_book; } // the book that comes next; 67 at the end

private:
  // What a word is told apart by at first sight, before it is compared.
  struct Sight {
    char16_t first = 0;
    char16_t last = 0;
    qsizetype length = 0;
    bool operator==(const Sight &) const = default;
    int Slot() const { return (first * 7 + last * 3 + static_cast<int>(length)) & 63; }
  };
  struct Word {
    Sight sight;
    QString folded;
  };

  void ReadQuery(const QString &query);
  void AddTerm(QStringView term);
  QStringView NextWord(QStringView &text, Sight &sight);
  QString Folded(QStringView word);
  bool IsWord(QStringView text, const Word &word);
  int Find(QStringView word, const Sight &sight);
  void ChooseAnchor();
  bool HasAnchor(QStringView verse);
  bool Matches(QStringView verse);
  qsizetype SearchChapter(int chapter, QList<SearchHit> &hits);
  const VersionText &Texto() const;

  VersionText m_velho;
  VersionText m_novo;
  FoldTable m_fold;
  QueryState m_estado = QueryState::Empty;
  std::vector<Word> m_words; // different ones, 64 at most
  quint64 m_slots = 0;       // of the words' sights
  std::vector<std::vector<int>> m_phrases;
  size_t m_anchor = 0;                // the word that is looked for first: the longest is the rarest as a rule
  std::array<bool, 256> m_leads = {}; // characters that fold to the anchor's first letter; others are asked one by one
  std::vector<int> m_order;           // of the verse looked at: its words by number, -1 for others
  int m_book = 1;
  QList<int> m_chapters; // of the book that are still to be looked at
};

} // namespace tolmira
