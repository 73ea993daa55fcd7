#include "import/verse_markup.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringView>
#include <optional>

namespace tolmira {

namespace {

QString Attribute(QStringView tag, const QString &name) {
  const QRegularExpression form(QStringLiteral("\\s%1\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')").arg(name));
  const QRegularExpressionMatch found = form.match(tag.toString());
  return found.captured(1) + found.captured(2);
}

// Between two characters that only markup keeps apart: words, and a word behind the end of a clause.
bool WantsBlank(QChar before, QChar behind) {
  const bool ends = before.isLetterOrNumber() || QStringView(u",.;:!?)”»").contains(before);
  const bool begins = behind.isLetterOrNumber() || QStringView(u"(“‘«¿¡").contains(behind);
  return ends && begins;
}

// The plain text while it grows, with the blanks that a source forgets.
class PlainText {
public:
  void Append(QStringView text) {
    for (const QChar character : text)
      Append(character);
  }

  void Append(QChar character) {
    if (m_added && m_added->end >= 0)
      SettleAddedWords(character);
    if (m_seam && !m_text.isEmpty() && WantsBlank(m_text.back(), character))
      m_text += u' ';
    m_seam = false;
    m_text += character;
  }

  void Blank() {
    SettleAddedWords(u' ');
    m_text += u' ';
  }

  // Here something that separates words was taken out: a note, the bounds of a speech.
  void Seam() { m_seam = true; }

  void BeginAddedWords() {
    SettleAddedWords(u' ');
    m_added = AddedWords{m_text.size(), -1};
  }
  void EndAddedWords() {
    if (m_added)
      m_added->end = m_text.size();
  }

  bool IsBlank() const { return QStringView(m_text).trimmed().isEmpty(); }

  QString Take() {
    SettleAddedWords(u' ');
    return m_text;
  }

private:
  struct AddedWords {
    qsizetype begin;
    qsizetype end; // -1 until it is known
  };

  // Words that the translators added may touch their neighbours because the blanks were lost ("Jehová" "es" "para"), or
  // because they complete a word, as the pronouns do that Spanish writes at the end of a verb ("saca" "lo").
  void SettleAddedWords(QChar behind) {
    if (!m_added)
      return;
    const qsizetype end = m_added->end < 0 ? m_text.size() : m_added->end;
    const qsizetype begin = m_added->begin;
    m_added.reset();
    if (begin >= end)
      return;
    const bool touchesBehind = WantsBlank(m_text[end - 1], behind);
    const bool touchesBefore = begin > 0 && WantsBlank(m_text[begin - 1], m_text[begin]);
    static const QSet<QString> pronouns = {QStringLiteral("me"),  QStringLiteral("te"),  QStringLiteral("se"),
                                           QStringLiteral("lo"),  QStringLiteral("la"),  QStringLiteral("le"),
                                           QStringLiteral("los"), QStringLiteral("las"), QStringLiteral("les"),
                                           QStringLiteral("nos"), QStringLiteral("os")};
    const bool completes = !touchesBehind && pronouns.contains(m_text.mid(begin, end - begin));
    if (touchesBehind)
      m_text.insert(end, u' ');
    if (touchesBefore && !completes)
      m_text.insert(begin, u' ');
  }

  QString m_text;
  bool m_seam = false;
  std::optional<AddedWords> m_added;
};

QString Entity(const QString &name) {
  static const QHash<QString, QString> named = {
      {QStringLiteral("amp"), QStringLiteral("&")},    {QStringLiteral("lt"), QStringLiteral("<")},
      {QStringLiteral("gt"), QStringLiteral(">")},     {QStringLiteral("quot"), QStringLiteral("\"")},
      {QStringLiteral("apos"), QStringLiteral("'")},   {QStringLiteral("nbsp"), QStringLiteral(" ")},
      {QStringLiteral("lsquo"), QStringLiteral("‘")},  {QStringLiteral("rsquo"), QStringLiteral("’")},
      {QStringLiteral("ldquo"), QStringLiteral("“")},  {QStringLiteral("rdquo"), QStringLiteral("”")},
      {QStringLiteral("mdash"), QStringLiteral("—")},  {QStringLiteral("ndash"), QStringLiteral("–")},
      {QStringLiteral("hellip"), QStringLiteral("…")}, {QStringLiteral("para"), QStringLiteral("¶")},
  };
  if (!name.startsWith(u'#'))
    return named.value(name);
  const bool hexadecimal = name.startsWith(u"#x", Qt::CaseInsensitive);
  bool number = false;
  const char32_t code = hexadecimal ? name.mid(2).toUInt(&number, 16) : name.mid(1).toUInt(&number);
  return number && code > 0 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code)
             ? QString::fromUcs4(&code, 1)
             : QString();
}

class ElementReader {
public:
  explicit ElementReader(const QString &entry) : m_entry(entry) {}

  QString Read() {
    while (m_at < m_entry.size()) {
      if (m_entry[m_at] == u'<' && Tag())
        continue;
      if (m_entry[m_at] == u'&' && Reference())
        continue;
      Text(m_entry.mid(m_at, 1));
      ++m_at;
    }
    return m_plain.Take();
  }

private:
  void Text(const QString &text) { m_plain.Append(m_capitals > 0 ? text.toUpper() : text); }

  bool Reference() {
    constexpr qsizetype LongestName = 10;
    const qsizetype end = m_entry.indexOf(u';', m_at);
    if (end < 0 || end - m_at > LongestName)
      return false;
    const QString character = Entity(m_entry.mid(m_at + 1, end - m_at - 1));
    if (character.isEmpty())
      return false;
    Text(character);
    m_at = end + 1;
    return true;
  }

  bool Tag() {
    const qsizetype end = m_entry.indexOf(u'>', m_at);
    if (end < 0)
      return false;
    const QStringView tag = QStringView(m_entry).mid(m_at + 1, end - m_at - 1);
    const bool closes = tag.startsWith(u'/');
    const bool standsAlone = tag.endsWith(u'/');
    qsizetype nameEnd = closes ? 1 : 0;
    while (nameEnd < tag.size() && (tag[nameEnd].isLetterOrNumber() || tag[nameEnd] == u':'))
      ++nameEnd;
    const QString name = tag.mid(closes ? 1 : 0, nameEnd - (closes ? 1 : 0)).toString();
    if (name.isEmpty() && !tag.startsWith(u'!') && !tag.startsWith(u'?'))
      return false;
    m_at = end + 1;
    // What stands behind the end of a chapter, in its last verse, is the next book's title or an appendix.
    if (name == u"chapter" && !m_plain.IsBlank() && (closes || !Attribute(tag, QStringLiteral("eID")).isEmpty())) {
      m_at = m_entry.size();
      return true;
    }
    if (!closes && !standsAlone && IsNoVerseText(name, tag) && PassOver(name)) {
      m_plain.Seam();
      return true;
    }
    Element(name, tag, closes, standsAlone);
    return true;
  }

  void Element(const QString &name, QStringView tag, bool closes, bool standsAlone) {
    static const QSet<QString> blocks = {
        QStringLiteral("div"),   QStringLiteral("l"),       QStringLiteral("lg"),    QStringLiteral("lb"),
        QStringLiteral("p"),     QStringLiteral("br"),      QStringLiteral("list"),  QStringLiteral("item"),
        QStringLiteral("verse"), QStringLiteral("chapter"), QStringLiteral("table"), QStringLiteral("row"),
        QStringLiteral("cell"),  QStringLiteral("tr"),      QStringLiteral("td"),    QStringLiteral("milestone")};
    if (blocks.contains(name))
      m_plain.Blank();
    if (name == u"q")
      m_plain.Seam();
    // Quotation marks that the source keeps out of its text.
    if (standsAlone && (name == u"q" || name == u"milestone"))
      m_plain.Append(Attribute(tag, QStringLiteral("marker")));
    if (name == u"transChange" && !standsAlone)
      closes ? m_plain.EndAddedWords() : m_plain.BeginAddedWords();
    if (name == u"divineName" && !standsAlone)
      m_capitals += closes ? -1 : 1;
  }

  static bool IsNoVerseText(const QString &name, QStringView tag) {
    static const QSet<QString> never = {QStringLiteral("note"),   QStringLiteral("title"), QStringLiteral("speaker"),
                                        QStringLiteral("figure"), QStringLiteral("head"),  QStringLiteral("scripRef"),
                                        QStringLiteral("rdg"),    QStringLiteral("h1"),    QStringLiteral("h2"),
                                        QStringLiteral("h3"),     QStringLiteral("h4"),    QStringLiteral("h5")};
    if (never.contains(name))
      return true;
    if (name == u"reference")
      return Attribute(tag, QStringLiteral("type")) == u"annotateRef";
    if (name == u"seg") // the second of two readings
      return Attribute(tag, QStringLiteral("subType")) == u"x-2";
    if (name == u"div") {
      static const QSet<QString> kinds = {QStringLiteral("colophon"), QStringLiteral("introduction"),
                                          QStringLiteral("sechead"), QStringLiteral("title")};
      return kinds.contains(Attribute(tag, QStringLiteral("type"))) ||
             kinds.contains(Attribute(tag, QStringLiteral("class")));
    }
    return false;
  }

  // Goes behind the end of the element that was begun just now; false, and nothing done, when it has none.
  bool PassOver(const QString &name) {
    const QRegularExpression bounds(QStringLiteral("<(/?)%1(?:\\s[^>]*)?>").arg(QRegularExpression::escape(name)));
    int depth = 1;
    QRegularExpressionMatchIterator found = bounds.globalMatch(m_entry, m_at);
    while (found.hasNext()) {
      const QRegularExpressionMatch bound = found.next();
      if (bound.captured().endsWith(u"/>"))
        continue;
      depth += bound.captured(1).isEmpty() ? 1 : -1;
      if (depth == 0) {
        m_at = bound.capturedEnd();
        return true;
      }
    }
    return false;
  }

  const QString &m_entry;
  qsizetype m_at = 0;
  int m_capitals = 0;
  PlainText m_plain;
};

QString WithoutGbf(const QString &entry) {
  // Notes, references, headings and titles have an end of their own, in which the second letter is small.
  static const QRegularExpression passages(QStringLiteral("<(R[FX]|T[SHTB])[^>]*>.*?<\\1[^>]*>"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression breaks(QStringLiteral("<(?:C[MLGI]|P[PI])[^>]*>"));
  static const QRegularExpression tags(QStringLiteral("<[A-Za-z][^>]*>"));
  PlainText plain;
  qsizetype at = 0;
  QString text = entry;
  // Only marks where the passage begins that a note belongs to.
  text.remove(QStringLiteral("<RB>"));
  for (QRegularExpressionMatchIterator found = passages.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch passage = found.next();
    plain.Append(QStringView(text).mid(at, passage.capturedStart() - at));
    plain.Seam();
    at = passage.capturedEnd();
  }
  plain.Append(QStringView(text).mid(at));
  return plain.Take().replace(breaks, QStringLiteral(" ")).remove(tags);
}

// One line, without what nobody should see.
QString Tidy(QString text) {
  static const QRegularExpression unseen(QStringLiteral("[¶\\x{00AD}\\x{200B}\\x{2060}\\x{FEFF}]"));
  // Some modules were made from USFM sources and kept a marker here and there: "the \nd LORD".
  static const QRegularExpression leftOver(QStringLiteral("\\\\\\+?[a-z]+[0-9]*(?:\\*|\\s)?"));
  text.remove(unseen).remove(leftOver);
  text.replace(u'<', u'‹').replace(u'>', u'›');
  return text.normalized(QString::NormalizationForm_C).simplified();
}

} // namespace

QString PlainVerse(const QString &entry, VerseMarkup markup) {
  switch (markup) {
  case VerseMarkup::Elements:
    return Tidy(ElementReader(entry).Read());
  case VerseMarkup::Gbf:
    return Tidy(WithoutGbf(entry));
  case VerseMarkup::None:
    break;
  }
  return Tidy(entry);
}

} // namespace tolmira
