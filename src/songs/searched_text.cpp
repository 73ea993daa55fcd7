#include "songs/searched_text.h"

#include "foundation/code_page.h"

#include <QUtf8StringView>
#include <algorithm>
#include <array>
#include <cstring>

namespace tolmira {

namespace {

// Lower case in windows-1252: no letter of the page leaves it, and none becomes two.
std::array<char, 256> MakeLowerTable() {
  std::array<char, 256> table{};
  for (size_t byte = 0; byte < table.size(); ++byte) {
    const QChar lower = QChar(CharacterOfByte(static_cast<unsigned char>(byte))).toLower();
    table[byte] = static_cast<char>(ByteOfCharacter(lower.unicode()));
  }
  return table;
}

bool IsAscii(QByteArrayView bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

bool Contains(const QByteArray &bytes, const QByteArray &part) {
  return memmem(bytes.constData(), static_cast<size_t>(bytes.size()), part.constData(),
                static_cast<size_t>(part.size())) != nullptr;
}

} // namespace

SearchTerm::SearchTerm(const QString &term)
    : m_text(term.toLower()), m_utf8(m_text.toUtf8()), m_whole(m_text.isValidUtf16()) {
  m_codePage.reserve(m_text.size());
  for (const QChar character : std::as_const(m_text)) {
    const unsigned char byte = ByteOfCharacter(character.unicode());
    m_inCodePage &= byte != '?' || character == u'?';
    m_codePage.append(static_cast<char>(byte));
  }
}

SearchedText::SearchedText(QByteArrayView fileBytes) {
  // Few files are UTF-8 beyond plain ASCII; only for those does a character's length matter.
  if (!IsAscii(fileBytes) && QUtf8StringView(fileBytes.data(), fileBytes.size()).isValidUtf8()) {
    const DecodedText decoded = DecodeText(fileBytes.toByteArray());
    if (decoded.encoding != TextEncoding::Windows1252) {
      m_bytes = decoded.text.toLower().toUtf8();
      m_bytes.squeeze();
      m_isUtf8 = true;
      return;
    }
  }
  static const std::array<char, 256> lower = MakeLowerTable();
  m_bytes.resize(fileBytes.size());
  std::transform(fileBytes.begin(), fileBytes.end(), m_bytes.begin(),
                 [](char byte) { return lower[static_cast<unsigned char>(byte)]; });
}

bool SearchedText::Holds(const SearchTerm &term) const {
  if (!m_isUtf8)
    return term.m_inCodePage && Contains(m_bytes, term.m_codePage);
  // Half a pair has no bytes of its own.
  return term.m_whole ? Contains(m_bytes, term.m_utf8) : QString::fromUtf8(m_bytes).contains(term.m_text);
}

} // namespace tolmira
