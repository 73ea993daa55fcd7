#include "songs/spelling.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <hunspell/hunspell.hxx>
#include <map>
#include <memory>

namespace tolmira {

namespace {

constexpr qsizetype WordsToChooseBy = 200; // of a text, at most
constexpr qsizetype WordsThatTell = 3;     // fewer say nothing about the language
constexpr qsizetype LongestWord = 60;      // letters; beyond it a look-up costs without use
constexpr int MostSuggestions = 6;

QStringList UsualFolders() {
  QStringList folders;
  if (const QString own = qEnvironmentVariable("DICPATH"); !own.isEmpty())
    folders = own.split(u':', Qt::SkipEmptyParts);
  return folders << QStringLiteral("/usr/share/hunspell") << QStringLiteral("/usr/share/myspell/dicts");
}

QString LanguageOf(const QString &code) {
  return code.section(u'_', 0, 0);
}

QString AsInDictionary(QString word) {
  return word.replace(QChar(0x2019), u'\'');
}

} // namespace

QList<WordPlace> WordsOf(const QString &text) {
  static const QRegularExpression word(QStringLiteral("\\p{L}[\\p{L}\\p{M}]*(?:['\u2019-]\\p{L}[\\p{L}\\p{M}]*)*"));
  QList<WordPlace> places;
  for (auto found = word.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    places.append({match.capturedStart(), match.capturedLength()});
  }
  return places;
}

QList<SpellingDictionary> InstalledDictionaries(const QStringList &folders) {
  QList<SpellingDictionary> dictionaries;
  QSet<QString> seen;
  for (const QString &folder : folders.isEmpty() ? UsualFolders() : folders) {
    for (const QFileInfo &words : QDir(folder).entryInfoList({QStringLiteral("*.dic")}, QDir::Files, QDir::Name)) {
      const QString path = words.path() + u'/' + words.completeBaseName();
      const bool readable = words.isReadable() && QFileInfo(path + u".aff").isReadable();
      if (!readable || words.completeBaseName().startsWith(u"hyph") || seen.contains(words.completeBaseName()))
        continue;
      seen.insert(words.completeBaseName());
      dictionaries.append({words.completeBaseName(), path});
    }
  }
  std::stable_sort(dictionaries.begin(), dictionaries.end(),
                   [](const auto &a, const auto &b) { return a.code < b.code; });
  return dictionaries;
}

// Lives on the thread. Dictionaries stay loaded once they were asked for.
class SpellingWorker : public QObject {
public:
  QList<bool> Check(const SpellingDictionary &dictionary, const QStringList &words) {
    Hunspell *loaded = Load(dictionary);
    QList<bool> right;
    for (const QString &word : words)
      right.append(!loaded || loaded->spell(Encode(*loaded, word)));
    return right;
  }

  QStringList Suggest(const SpellingDictionary &dictionary, const QString &word) {
    QStringList suggestions;
    if (Hunspell *loaded = Load(dictionary)) {
      for (const std::string &found : loaded->suggest(Encode(*loaded, word))) {
        if (suggestions.size() < MostSuggestions)
          suggestions.append(Decode(*loaded, found));
      }
    }
    return suggestions;
  }

  // The code of the first of those that know most of the words; empty when none knows a third of them.
  QString Best(const QList<SpellingDictionary> &candidates, const QStringList &words) {
    QString best;
    qsizetype most = words.size() / 3;
    for (const SpellingDictionary &candidate : candidates) {
      const qsizetype known = Check(candidate, words).count(true);
      if (known > most) {
        most = known;
        best = candidate.code;
      }
    }
    return best;
  }

private:
  Hunspell *Load(const SpellingDictionary &dictionary) {
    const auto known = m_loaded.find(dictionary.code);
    if (known != m_loaded.end())
      return known->second.get();
    const std::string path = QFile::encodeName(dictionary.path).toStdString();
    auto made = std::make_unique<Hunspell>((path + ".aff").c_str(), (path + ".dic").c_str());
    // An encoding of another kind would make every word with an accent a wrong one.
    const std::string encoding = made->get_dict_encoding();
    if (encoding != "UTF-8" && encoding != "ISO8859-1" && encoding != "ISO8859-15")
      made.reset();
    return m_loaded.emplace(dictionary.code, std::move(made)).first->second.get();
  }

  static std::string Encode(Hunspell &dictionary, const QString &word) {
    return dictionary.get_dict_encoding() == "UTF-8" ? word.toStdString() : word.toLatin1().toStdString();
  }
  static QString Decode(Hunspell &dictionary, const std::string &word) {
    return dictionary.get_dict_encoding() == "UTF-8" ? QString::fromStdString(word)
                                                     : QString::fromLatin1(word.data(), qsizetype(word.size()));
  }

  std::map<QString, std::unique_ptr<Hunspell>> m_loaded;
};

Spelling::Spelling(QList<SpellingDictionary> dictionaries)
    : m_dictionaries(std::move(dictionaries)), m_worker(new SpellingWorker) {
  m_thread.setObjectName(QStringLiteral("spelling"));
  m_worker->moveToThread(&m_thread);
  connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
  m_thread.start(QThread::LowPriority);
}

Spelling::~Spelling() {
  m_thread.quit();
  m_thread.wait();
}

void Spelling::SetLanguage(const QString &code) {
  ++m_choice; // one under way is overtaken
  if (code == m_language)
    return;
  m_language = code;
  ++m_round;
  m_known.clear();
  m_waiting.clear();
  m_asking = false;
  emit LanguageChanged();
}

void Spelling::ChooseFor(const QString &text) {
  QStringList words;
  for (const WordPlace &place : WordsOf(text)) {
    if (words.size() < WordsToChooseBy)
      words.append(AsInDictionary(text.sliced(place.from, std::min(place.length, LongestWord))));
  }
  if (words.size() < WordsThatTell)
    return;

  QList<SpellingDictionary> candidates;
  const auto take = [&](const QString &code, bool exact) {
    for (const SpellingDictionary &dictionary : std::as_const(m_dictionaries)) {
      const bool fits = exact ? dictionary.code == code : LanguageOf(dictionary.code) == LanguageOf(code);
      const auto same = [&](const SpellingDictionary &other) {
        return LanguageOf(other.code) == LanguageOf(dictionary.code);
      };
      if (fits && std::none_of(candidates.begin(), candidates.end(), same)) {
        candidates.append(dictionary);
        return;
      }
    }
  };
  take(m_language, true);
  const QString here = QLocale::system().name();
  take(here, true);
  for (const QString &code : {here, QStringLiteral("pt_BR"), QStringLiteral("en_US")}) {
    take(code, true);
    take(code, false);
  }
  if (candidates.isEmpty())
    return;
  QMetaObject::invokeMethod(m_worker, [this, worker = m_worker, candidates, words, choice = ++m_choice] {
    const QString best = worker->Best(candidates, words);
    QMetaObject::invokeMethod(this, [this, best, choice] {
      if (choice == m_choice && !best.isEmpty())
        SetLanguage(best);
    });
  });
}

Spelling::Verdict Spelling::Look(const QString &given) {
  if (m_language.isEmpty() || given.size() > LongestWord)
    return Verdict::Right;
  const QString word = AsInDictionary(given);
  if (m_accepted.contains(word))
    return Verdict::Right;
  const auto known = m_known.constFind(word);
  if (known != m_known.constEnd())
    return *known;
  m_known.insert(word, Verdict::Unknown);
  m_waiting.append(word);
  if (!m_asking) {
    m_asking = true;
    // The words of a whole text are asked for one after the other; they go out together.
    QMetaObject::invokeMethod(
        this, [this] { Ask(); }, Qt::QueuedConnection);
  }
  return Verdict::Unknown;
}

void Spelling::Ask() {
  const auto dictionary = std::find_if(m_dictionaries.cbegin(), m_dictionaries.cend(),
                                       [this](const auto &one) { return one.code == m_language; });
  m_asking = false;
  if (dictionary == m_dictionaries.cend() || m_waiting.isEmpty())
    return;
  QMetaObject::invokeMethod(
      m_worker, [this, worker = m_worker, one = *dictionary, words = std::exchange(m_waiting, {}), round = m_round] {
        const QList<bool> right = worker->Check(one, words);
        QMetaObject::invokeMethod(this, [this, words, right, round] {
          if (round != m_round)
            return;
          for (qsizetype i = 0; i < words.size(); ++i)
            m_known[words[i]] = right[i] ? Verdict::Right : Verdict::Wrong;
          emit Answered();
        });
      });
}

void Spelling::Suggest(const QString &word, std::function<void(const QStringList &)> onAnswer) {
  const auto dictionary = std::find_if(m_dictionaries.cbegin(), m_dictionaries.cend(),
                                       [this](const auto &one) { return one.code == m_language; });
  if (dictionary == m_dictionaries.cend())
    return;
  const int number = ++m_lastAsked;
  m_asked.insert(number, std::move(onAnswer));
  QMetaObject::invokeMethod(
      m_worker, [this, worker = m_worker, one = *dictionary, asked = AsInDictionary(word), number] {
        const QStringList suggestions = worker->Suggest(one, asked);
        QMetaObject::invokeMethod(this, [this, suggestions, number] {
          if (const auto answer = m_asked.take(number))
            answer(suggestions);
        });
      });
}

void Spelling::Accept(const QString &word) {
  m_accepted.insert(AsInDictionary(word));
  emit Answered();
}

} // namespace tolmira
