#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace tolmira {

// What is looked for, lowered once and in the forms in which texts are kept.
class SearchTerm {
public:
  explicit SearchTerm(const QString &term);
  const QString &Text() const { return m_text; } // lower case

private:
  friend class SearchedText;
  QString m_text;
  QByteArray m_codePage;
  QByteArray m_utf8;
  bool m_inCodePage = true; // every character is one of windows-1252
  bool m_whole = true;      // no half of a pair of surrogates
};

// The text of a file in lower case, kept for searching. Holds() answers as if the file's bytes were decoded
// (DecodeText), lowered by the toolkit and compared character for character; nothing is folded. The bytes are those of
// the encoding that the file came in, so the text takes as much room as the file: lower case is never longer in
// windows-1252 and at most half as long again in UTF-8.
class SearchedText {
public:
  SearchedText() = default;
  explicit SearchedText(QByteArrayView fileBytes);

  bool Holds(const SearchTerm &term);
  // For a term that begins with the one that was found last: it cannot stand before that one's place.
  bool HoldsLonger(const SearchTerm &term);
  void ForgetPlace() { m_place = 0; }
  qsizetype Size() const { return m_bytes.size(); }
  void Prefetch() const { __builtin_prefetch(m_bytes.constData()); } // Holds() is to be asked soon

private:
  qsizetype Find(const SearchTerm &term, qsizetype from) const;

  QByteArray m_bytes;
  bool m_isUtf8 = false;
  int m_place = 0; // of the term that was found last
};

} // namespace tolmira
