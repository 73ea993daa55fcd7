#include "songs/searched_text.h"

#include "foundation/code_page.h"

#include <QUtf8StringView>
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <numeric>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// All bytes at once, without an early end: so the compiler takes sixteen in a step.
bool IsAscii(QByteArrayView bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), 0u, [](unsigned all, char byte) {
           return all | static_cast<unsigned char>(byte);
         }) < 0x80;
}

#if defined(__SSE2__)
// Sixteen places at a time: a place is looked at when both the first and the last byte of the part stand there. The
// library's search goes byte by byte, and a narrowing key has no time for that.
bool ContainsLong(const char *bytes, size_t size, const char *part, size_t length) {
  constexpr size_t Block = sizeof(__m128i);
  const auto load = [](const char *from) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(from)); };
  const __m128i first = _mm_set1_epi8(part[0]);
  const __m128i last = _mm_set1_epi8(part[length - 1]);
  const size_t places = size - length + 1;
  for (size_t at = 0; at < places; at += Block) {
    at = std::min(at, places - Block); // the last block overlaps the one before
    const __m128i both =
        _mm_and_si128(_mm_cmpeq_epi8(load(bytes + at), first), _mm_cmpeq_epi8(load(bytes + at + length - 1), last));
    for (auto mask = static_cast<unsigned>(_mm_movemask_epi8(both)); mask != 0; mask &= mask - 1) {
      if (memcmp(bytes + at + std::countr_zero(mask), part, length) == 0)
        return true;
    }
  }
  return false;
}
#endif

bool Contains(const QByteArray &bytes, const QByteArray &part) {
  const auto size = static_cast<size_t>(bytes.size());
  const auto length = static_cast<size_t>(part.size());
#if defined(__SSE2__)
  if (length > 0 && size >= length + sizeof(__m128i))
    return ContainsLong(bytes.constData(), size, part.constData(), length);
#endif
  return memmem(bytes.constData(), size, part.constData(), length) != nullptr;
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
      m_bytes.squeeze(); // the encoder leaves room for the longest characters
      m_isUtf8 = true;
      return;
    }
  }
  static const std::array<char, 256> lower = MakeLowerTable();
  m_bytes = QByteArray(fileBytes.size(), Qt::Uninitialized);
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
