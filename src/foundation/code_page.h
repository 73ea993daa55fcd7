#pragma once

#include <QByteArray>
#include <QString>

namespace tolmira {

// How the bytes of a text file stand for characters. The program's own files are windows-1252; files that people bring
// may be UTF-8, with or without a byte order mark, and are written back as they came.
enum class TextEncoding { Windows1252, Utf8, Utf8WithMark };

struct DecodedText {
  QString text;
  TextEncoding encoding = TextEncoding::Windows1252;
};

// Reads a byte order mark as such, valid UTF-8 beyond plain ASCII as UTF-8, and everything else as windows-1252. The
// five bytes that windows-1252 leaves undefined become the control characters of the same number and survive a round
// trip, as does NUL.
DecodedText DecodeText(const QByteArray &bytes);

// The bytes of a data file. A text that windows-1252 cannot hold becomes UTF-8 whatever the wish, so that no character
// is lost.
QByteArray EncodeText(const QString &text, TextEncoding wish = TextEncoding::Windows1252);

// The bytes of a page: windows-1252, with every character beyond it as a numeric character reference ("&#1513;").
QByteArray EncodePage(const QString &text);

// One windows-1252 byte and its character; '?' for a character that the code page lacks.
char16_t CharacterOfByte(unsigned char byte);
unsigned char ByteOfCharacter(char16_t character);

} // namespace tolmira
