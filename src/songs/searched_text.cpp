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
qsizetype FindInLong(const char *bytes, size_t size, const char *part, size_t length) {
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
      const size_t place = at + static_cast<size_t>(std::countr_zero(mask));
      if (memcmp(bytes + place, part, length) == 0)
        return static_cast<qsizetype>(place);
    }
  }
  return -1;
}
#endif

// The first place of the part, or -1.
qsizetype FindIn(QByteArrayView bytes, const QByteArray &part) {
  const auto size = static_cast<size_t>(bytes.size());
  const auto length = static_cast<size_t>(part.size());
#if defined(__SSE2__)
  if (length > 0 && size >= length + sizeof(__m128i))
    return FindInLong(bytes.data(), size, part.constData(), length);
#endif
  const auto *found = static_cast<const char *>(memmem(bytes.data(), size, part.constData(), length));
  return found ? found - bytes.data() : -1;
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

qsizetype SearchedText::Find(const SearchTerm &term, qsizetype from) const {
  if (!m_isUtf8 && !term.m_inCodePage)
    return -1;
  // Half a pair has no bytes of its own, and so no place.
  if (m_isUtf8 && !term.m_whole)
    return QString::fromUtf8(m_bytes).contains(term.m_text) ? 0 : -1;
  const qsizetype found = FindIn(QByteArrayView(m_bytes).sliced(from), m_isUtf8 ? term.m_utf8 : term.m_codePage);
  return found < 0 ? -1 : from + found;
}

bool SearchedText::Holds(const SearchTerm &term) {
  m_place = 0;
  return HoldsLonger(term);
}

bool SearchedText::HoldsLonger(const SearchTerm &term) {
  const qsizetype place = Find(term, m_place);
  m_place = static_cast<int>(std::max<qsizetype>(place, 0));
  return place >= 0;
}

} // namespace tolmira
