#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QThread>
#include <functional>

namespace tolmira {

// A word's place in a text.
struct WordPlace {
  qsizetype from = 0;
  qsizetype length = 0;
};

// Letters with the apostrophes and hyphens inside them.
QList<WordPlace> WordsOf(const QString &text);

// A dictionary of the desktop, as its files are called: "pt_BR".
struct SpellingDictionary {
  QString code;
  QString path; // without ".aff" and ".dic"
};

// The dictionaries in `folders` that can be read, by code; in the usual places where none are named.
QList<SpellingDictionary> InstalledDictionaries(const QStringList &folders = {});

class SpellingWorker;

// Looks words up in the dictionaries of the desktop. A dictionary takes a second to load and a suggestion as long to
// find, so both happen on a thread of their own: the answers come later. It is the program's only thread besides the
// toolkit's, and nothing but words goes between them.
class Spelling : public QObject {
  Q_OBJECT

public:
  enum class Verdict { Unknown, Right, Wrong };

  explicit Spelling(QList<SpellingDictionary> dictionaries);
  ~Spelling() override;

  const QList<SpellingDictionary> &Dictionaries() const { return m_dictionaries; }

  // The dictionary in force; empty for none, where every word is right.
  const QString &Language() const { return m_language; }
  void SetLanguage(const QString &code);
  // Takes the dictionary that knows most words of the text, among the one in force, the desktop's language, Portuguese
  // and English. A text without enough words changes nothing.
  void ChooseFor(const QString &text);

  // Unknown when the word has not been looked up yet; Answered follows.
  Verdict Look(const QString &word);
  void Suggest(const QString &word, std::function<void(const QStringList &)> onAnswer);
  void Accept(const QString &word); // right for as long as the program runs

signals:
  void Answered();
  void LanguageChanged();

private:
  void Ask();

  QList<SpellingDictionary> m_dictionaries;
  QString m_language;
  QHash<QString, Verdict> m_known;
  QSet<QString> m_accepted;
  QStringList m_waiting;
  bool m_asking = false;
  int m_round = 0;  // of the language: answers of an earlier one are dropped
  int m_choice = 0; // of a language: only the newest counts
  // Who waits for suggestions. What they hold belongs to this thread and stays on it; only the number goes to the worker.
  QHash<int, std::function<void(const QStringList &)>> m_asked;
  int m_lastAsked = 0;
  QThread m_thread;
  SpellingWorker *m_worker;
};

} // namespace tolmira
