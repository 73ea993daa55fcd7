#include "foundation/text_utils.h"

#include "foundation/code_page.h"
#include "foundation/text_fields.h"

#include <array>
#include <cmath>
#include <utility>

namespace tolmira {
namespace {

// Beyond this a number and the next one are the same.
constexpr double LargestCounted = 9007199254740992.0;

QString TrimBlanks(const QString &text) {
  QStringView view(text);
  while (view.startsWith(u' '))
    view = view.sliced(1);
  while (view.endsWith(u' '))
    view.chop(1);
  return view.toString();
}

QChar WithoutAccent(QChar letter) {
  static constexpr QStringView Accented = u"áéíóúàèìòùâêîôûãõäëïöüç";
  static constexpr QStringView Plain = u"aeiouaeiouaeiouaoaeiouc";
  const qsizetype at = Accented.indexOf(letter);
  return at < 0 ? letter : Plain.at(at);
}

bool SurvivesFolding(QChar character) {
  return (character >= u'a' && character <= u'z') || (character >= u'0' && character <= u'9') || character == u' ';
}

int HexDigit(QChar character) {
  if (character >= u'0' && character <= u'9')
    return character.unicode() - u'0';
  const char16_t lower = character.toLower().unicode();
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

// The character of the two hexadecimal digits at the head of `text`; the one of value 0 where there are none.
QChar CharacterOfDigits(QStringView text) {
  const int high = text.size() >= 2 ? HexDigit(text.at(0)) : -1;
  const int low = text.size() >= 2 ? HexDigit(text.at(1)) : -1;
  return high < 0 || low < 0 ? QChar(u'\0') : QChar(CharacterOfByte(static_cast<unsigned char>(high * 16 + low)));
}

} // namespace

QString FoldText(const QString &text) {
  QString folded = TrimBlanks(text.toLower());
  for (QChar &letter : folded)
    letter = WithoutAccent(letter);
  // A pass skips the character behind each one that it removes, as its place moves on while the text closes up; so one
  // pass need not be enough.
  for (int pass = 0; pass < 3; ++pass) {
    folded = ReplaceAll(folded, QStringLiteral("  "), QStringLiteral(" "));
    for (qsizetype i = 0; i < folded.size(); ++i) {
      if (const QChar character = folded.at(i); !SurvivesFolding(character))
        folded.remove(character);
    }
    folded = TrimBlanks(folded.toLower());
  }
  return folded;
}

QString ReplaceAll(QString text, const QString &old, const QString &replacement) {
  if (old.isEmpty())
    return text;
  // A replacement that brings the old text back can never come to an end: one pass then, and no more than a bounded
  // growth for one that brings it back together with its neighbours.
  const qsizetype limit = 8 * (text.size() + replacement.size()) + 1024;
  const bool comesBack = replacement.contains(old);
  while (text.contains(old)) {
    text.replace(old, replacement);
    if (comesBack || text.size() > limit)
      break;
  }
  return text;
}

QString TitleCaseSong(const QString &text) {
  static const QStringList SmallWords = {
      QStringLiteral("De"),   QStringLiteral("Do"),  QStringLiteral("A"),   QStringLiteral("E"),  QStringLiteral("É"),
      QStringLiteral("Na"),   QStringLiteral("No"),  QStringLiteral("As"),  QStringLiteral("Os"), QStringLiteral("Te"),
      QStringLiteral("Quem"), QStringLiteral("Que"), QStringLiteral("Com"), QStringLiteral("Eu"), QStringLiteral("Me"),
      QStringLiteral("Em"),   QStringLiteral("Nas"), QStringLiteral("Nos")};
  QString title = text;
  bool capital = true;
  for (QChar &character : title) {
    const bool startsWord = !capital && (character == u'-' || character == u' ');
    character = capital ? character.toUpper() : character.toLower();
    capital = startsWord;
  }
  for (const QString &word : SmallWords) {
    const QString spaced = u' ' + word + u' ';
    title.replace(spaced, spaced.toLower());
  }
  return title;
}

QString StripMarkup(const QString &text) {
  QString plain;
  plain.reserve(text.size());
  qsizetype at = 0;
  while (true) {
    const qsizetype open = text.indexOf(u'<', at);
    const qsizetype close = open < 0 ? -1 : text.indexOf(u'>', open);
    if (close < 0)
      break;
    plain += QStringView(text).sliced(at, open - at);
    at = close + 1;
  }
  plain += QStringView(text).sliced(at);
  plain.replace(QLatin1String("&#x27;"), QLatin1String("'")).replace(QLatin1String("&quot;"), QLatin1String("\""));
  for (int n = 1; n <= 28; ++n)
    plain.remove(QStringLiteral("[^%1]").arg(n));
  return plain;
}

QString RepairEntities(const QString &text) {
  static constexpr std::pair<QStringView, QStringView> Repairs[] = {
      {u"\r\n", u""},    {u"\n", u""},       {u"<i>", u""},       {u"</i>", u""}, {u"&#x27;", u"'"}, {u"&quot;", u"\""},
      {u"&#39;", u"'"},  {u"&#039;", u"'"},  {u"&amp;", u"&"},    {u"?s", u"'s"}, {u"?re", u"'re"},  {u"?ve", u"'ve"},
      {u"<p>", u"\r\n"}, {u"<br>", u"\r\n"}, {u"<br/>", u"\r\n"}, {u"Â", u""}};
  QString repaired = text;
  for (const auto &[old, replacement] : Repairs)
    repaired.replace(old.toString(), replacement.toString());
  return StripMarkup(repaired);
}

QString ColorToHex(qint32 color) {
  const int red = color & 0xFF;
  const int green = (color >> 8) & 0xFF;
  const int blue = (color >> 16) & 0xFF;
  const QString digits = QString::number((red << 16) | (green << 8) | blue, 16).toUpper();
  return u'#' + digits.rightJustified(6, u'0');
}

QString UrlDecode(const QString &text) {
  QString decoded;
  decoded.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar character = text.at(i);
    if (character == u'%') {
      decoded += CharacterOfDigits(QStringView(text).sliced(i + 1));
      i += 2;
    } else {
      decoded += character == u'+' ? QChar(u' ') : character;
    }
  }
  return decoded;
}

QString UrlDecodeSplit(const QString &text) {
  const QStringList pieces = QString(text).replace(u'+', u' ').split(u'%');
  QString decoded = pieces.first();
  for (qsizetype i = 1; i < pieces.size(); ++i)
    decoded += CharacterOfDigits(pieces.at(i)) + pieces.at(i).mid(2);
  return decoded;
}

QString UrlEncode(const QString &text) {
  static constexpr QStringView Digits = u"0123456789ABCDEF";
  QString encoded;
  encoded.reserve(text.size());
  for (const QChar character : text) {
    const bool letter = (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
    if (letter || (character >= u'0' && character <= u'9')) {
      encoded += character;
    } else if (character == u' ') {
      encoded += u'+';
    } else {
      const unsigned char byte = ByteOfCharacter(character.unicode());
      encoded += u'%';
      encoded += Digits.at(byte >> 4);
      encoded += Digits.at(byte & 0x0F);
    }
  }
  return encoded;
}

QString FileNameOf(const QString &path) {
  return path.mid(qMax(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

QString FileNameWithoutExtension(const QString &path, const QString &delimiter) {
  return BaseNameBefore(FileNameOf(path), delimiter);
}

QString ExtensionOf(const QString &name) {
  const qsizetype dot = name.lastIndexOf(u'.');
  return dot < 0 ? QString() : name.mid(dot + 1);
}

QString FolderOf(const QString &path, const QString &delimiter) {
  const qsizetype at = delimiter.isEmpty() ? -1 : path.lastIndexOf(delimiter);
  return at < 0 ? QString() : path.left(at + delimiter.size());
}

QString NextFreeName(const QString &name) {
  const QString extension = ExtensionOf(name);
  double number = 0;
  if (name.endsWith(QString(u")." + extension), Qt::CaseInsensitive))
    number = std::nearbyint(NumericPrefix(name.mid(name.indexOf(u'(') + 1)));
  // A number too large to be counted on (a time stamp, say) begins a series of its own: the next name must be another.
  if (number == 0 || std::abs(number) >= LargestCounted)
    return BaseNameBefore(name, QStringLiteral(".")) + u"(1)." + extension;
  return name.left(name.lastIndexOf(u'(')) + u'(' + NumberText(number + 1) + u")." + extension;
}

QString VersionCode(const QString &version) {
  static constexpr std::array<double, 3> Weights = {10000, 1000, 1};
  double sum = 0;
  for (int i = 0; i < 3; ++i)
    sum += Weights[static_cast<size_t>(i)] * NumericPrefix(SplitField(version, QStringLiteral("."), i + 1));
  return NumberText(sum);
}

bool VersionIsNewer(const QString &current, const QString &latest) {
  return VersionCode(latest) > VersionCode(current);
}

QString EscapeHtml(const QString &text) {
  return QString(text)
      .replace(u'&', QLatin1String("&amp;"))
      .replace(u'<', QLatin1String("&lt;"))
      .replace(u'>', QLatin1String("&gt;"));
}

} // namespace tolmira
