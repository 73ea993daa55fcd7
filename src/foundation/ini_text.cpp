#include "foundation/ini_text.h"

#include <QSet>
#include <algorithm>

namespace tolmira {
namespace {

const QLatin1String LineEnd("\r\n");

enum class LineKind { Blank, Section, Key, Other };

struct Line {
  LineKind kind = LineKind::Other;
  QStringView name;    // of the section or the key
  QStringView value;   // behind the "=" of a key, as it stands
  qsizetype start = 0; // of the line in the text
  qsizetype end = 0;   // behind its last character
  qsizetype next = 0;  // behind its line end
};

// Only what an INI file counts as blank; a no-break space is text.
bool IsBlank(QChar character) {
  return character == u' ' || (character >= u'\t' && character <= u'\f');
}

QStringView Trimmed(QStringView text) {
  while (!text.isEmpty() && IsBlank(text.front()))
    text = text.sliced(1);
  while (!text.isEmpty() && IsBlank(text.back()))
    text.chop(1);
  return text;
}

bool SameName(QStringView a, QStringView b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

Line LineAt(QStringView text, qsizetype start) {
  Line line;
  line.start = line.end = start;
  while (line.end < text.size() && text.at(line.end) != u'\n' && text.at(line.end) != u'\r')
    ++line.end;
  line.next = std::min(line.end + 1, text.size());
  if (text.sliced(line.end).startsWith(LineEnd))
    line.next = line.end + LineEnd.size();

  const QStringView content = Trimmed(text.sliced(start, line.end - start));
  if (content.isEmpty()) {
    line.kind = LineKind::Blank;
  } else if (content.front() == u'[') {
    const qsizetype close = content.lastIndexOf(u']');
    if (close > 0) {
      line.kind = LineKind::Section;
      line.name = Trimmed(content.sliced(1, close - 1));
    }
  } else if (content.front() != u';') {
    const qsizetype equals = content.indexOf(u'=');
    if (equals > 0) {
      line.kind = LineKind::Key;
      line.name = Trimmed(content.first(equals));
      line.value = content.sliced(equals + 1);
    }
  }
  return line;
}

QString ValueForReader(QStringView stored) {
  QStringView value = Trimmed(stored);
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
  if (quoted)
    value = value.sliced(1, value.size() - 2);
  const qsizetype nul = value.indexOf(QChar(u'\0'));
  if (nul >= 0)
    value = value.first(nul);
  if (value.size() > IniValueLimit) {
    value = value.first(IniValueLimit);
    if (value.back().isHighSurrogate())
      value.chop(1);
  }
  return value.toString();
}

bool HasLineEnd(const QString &text) {
  return text.contains(u'\r') || text.contains(u'\n') || text.contains(QChar(u'\0'));
}

// A name that would be read back as another one, or as a comment, must not reach the file.
bool CanBeKey(const QString &key) {
  const QStringView name = Trimmed(key);
  return !name.isEmpty() && !HasLineEnd(key) && !name.contains(u'=') && name.front() != u'[' && name.front() != u';';
}

QString AsOneLine(QString value) {
  return value.replace(LineEnd, QLatin1String(" "))
      .replace(u'\r', u' ')
      .replace(u'\n', u' ')
      .replace(QChar(u'\0'), u' ');
}

} // namespace

std::optional<QString> IniValue(QStringView text, QStringView section, QStringView key) {
  const QStringView wantedSection = Trimmed(section);
  const QStringView wantedKey = Trimmed(key);
  bool inside = false;
  for (qsizetype at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.next;
    if (line.kind == LineKind::Section) {
      if (inside)
        break;
      inside = SameName(line.name, wantedSection);
    } else if (inside && line.kind == LineKind::Key && SameName(line.name, wantedKey)) {
      return ValueForReader(line.value);
    }
  }
  return std::nullopt;
}

void ForEachIniValue(QStringView text, const std::function<void(QStringView, QStringView, const QString &)> &visit) {
  QSet<QString> sections;
  QSet<QString> keys;
  QStringView section;
  bool counts = false;
  for (qsizetype at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.next;
    if (line.kind == LineKind::Section) {
      section = line.name;
      const QString folded = section.toString().toCaseFolded();
      counts = !sections.contains(folded);
      sections.insert(folded);
      keys.clear();
    } else if (counts && line.kind == LineKind::Key) {
      const QString folded = line.name.toString().toCaseFolded();
      if (keys.contains(folded))
        continue;
      keys.insert(folded);
      visit(section, line.name, ValueForReader(line.value));
    }
  }
}

std::optional<QString> WithIniValue(const QString &text, const QString &section, const QString &key,
                                    const QString &value) {
  if (HasLineEnd(section) || !CanBeKey(key))
    return std::nullopt;
  const QString stored = AsOneLine(value);

  bool inside = false;
  Line lastOfSection;
  for (qsizetype at = 0; at < text.size();) {
    const Line line = LineAt(text, at);
    at = line.next;
    if (line.kind == LineKind::Section) {
      if (inside)
        break;
      inside = SameName(line.name, Trimmed(section));
      lastOfSection = line;
    } else if (inside && line.kind == LineKind::Key && SameName(line.name, Trimmed(key))) {
      const qsizetype equals = text.indexOf(u'=', line.start);
      return text.left(equals + 1) + stored + QStringView(text).sliced(line.end);
    } else if (inside && line.kind != LineKind::Blank) {
      lastOfSection = line;
    }
  }

  const QString newKey = key + u'=' + stored + LineEnd;
  if (!inside) {
    const bool open = !text.isEmpty() && !text.endsWith(u'\n') && !text.endsWith(u'\r');
    return text + (open ? LineEnd : QLatin1String()) + u'[' + section + u']' + LineEnd + newKey;
  }
  const bool open = lastOfSection.next == lastOfSection.end;
  return text.left(lastOfSection.next) + (open ? LineEnd : QLatin1String()) + newKey +
         QStringView(text).sliced(lastOfSection.next);
}

QString QuotedIniValue(const QString &value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
  return quoted || value != value.trimmed() ? u'"' + value + u'"' : value;
}

} // namespace tolmira
