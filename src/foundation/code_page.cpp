#include "foundation/code_page.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

namespace tolmira {
namespace {

constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF", 3);

// The bytes 0x80 to 0x9F; outside this range a byte is the character of the same number. The five undefined bytes are
// mapped to themselves, so that a file with such a byte comes back from a rewrite unchanged.
constexpr std::array<char16_t, 32> UpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<unsigned char> FindByte(char16_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
    return static_cast<unsigned char>(character);
  const auto found = std::find(UpperControls.begin(), UpperControls.end(), character);
  if (found == UpperControls.end())
    return std::nullopt;
  return static_cast<unsigned char>(0x80 + (found - UpperControls.begin()));
}

bool IsAscii(const QByteArray &bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Without the decoder's own treatment of a mark: a second mark is text.
std::optional<QString> DecodeUtf8(QByteArrayView bytes) {
  using Flag = QStringConverter::Flag;
  QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
  QString text = decoder.decode(bytes);
  if (decoder.hasError())
    return std::nullopt;
  return text;
}

QString DecodeWindows1252(const QByteArray &bytes) {
  QString text(bytes.size(), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return QChar(CharacterOfByte(static_cast<unsigned char>(byte))); });
  return text;
}

std::optional<QByteArray> EncodeWindows1252(const QString &text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (const QChar character : text) {
    const std::optional<unsigned char> byte = FindByte(character.unicode());
    if (!byte)
      return std::nullopt;
    bytes.append(static_cast<char>(*byte));
  }
  return bytes;
}

} // namespace

char16_t CharacterOfByte(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? UpperControls[byte - 0x80u] : static_cast<char16_t>(byte);
}

unsigned char ByteOfCharacter(char16_t character) {
  return FindByte(character).value_or('?');
}

DecodedText DecodeText(const QByteArray &bytes) {
  if (IsAscii(bytes))
    return {QString::fromLatin1(bytes), TextEncoding::Windows1252};
  if (bytes.startsWith(ByteOrderMark)) {
    if (std::optional<QString> text = DecodeUtf8(QByteArrayView(bytes).sliced(ByteOrderMark.size())))
      return {*std::move(text), TextEncoding::Utf8WithMark};
  } else if (std::optional<QString> text = DecodeUtf8(bytes)) {
    return {*std::move(text), TextEncoding::Utf8};
  }
  return {DecodeWindows1252(bytes), TextEncoding::Windows1252};
}

QByteArray EncodeText(const QString &text, TextEncoding wish) {
  if (wish == TextEncoding::Windows1252) {
    // Bytes that happen to be valid UTF-8 would be read back as another text, so such a text has to be UTF-8.
    const std::optional<QByteArray> bytes = EncodeWindows1252(text);
    if (bytes && DecodeText(*bytes).encoding == TextEncoding::Windows1252)
      return *bytes;
  }
  // A text that begins with U+FEFF keeps it only behind a mark of its own.
  const bool withMark = wish == TextEncoding::Utf8WithMark || text.startsWith(QChar(0xFEFF));
  return withMark ? ByteOrderMark.toByteArray() + text.toUtf8() : text.toUtf8();
}

QByteArray EncodePage(const QString &text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar character = text.at(i);
    if (const std::optional<unsigned char> byte = FindByte(character.unicode())) {
      bytes.append(static_cast<char>(*byte));
      continue;
    }
    char32_t code = character.unicode();
    if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
      code = QChar::surrogateToUcs4(character, text.at(++i));
    else if (character.isSurrogate())
      code = QChar::ReplacementCharacter;
    bytes.append("&#").append(QByteArray::number(static_cast<uint>(code))).append(';');
  }
  return bytes;
}

} // namespace tolmira
