#pragma once
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quill::content {

/// 16 bytes that the compiler compares at once (SSE2, NEON).
typedef unsigned char ByteLanes __attribute__((vector_size(16)));
typedef signed char SignedLanes __attribute__((vector_size(16)));
/// The same bytes as two words: a cast between the two stays in registers.
typedef std::uint64_t WordPair __attribute__((vector_size(16)));

inline ByteLanes LoadLanes(const char* from) {
  ByteLanes lanes;
  std::memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

/// The index of the first byte that is not 0; at least one must not be.
inline std::size_t FirstSetByte(WordPair words) {
  static_assert(std::endian::native == std::endian::little);
  const int bits = words[0] != 0 ? std::countr_zero(words[0]) : 64 + std::countr_zero(words[1]);
  return static_cast<std::size_t>(bits) / 8;
}

/// 0xFF in each lane that holds one of the wanted bytes, 0 in the others.
template <char... kWanted>
ByteLanes MatchLanes(ByteLanes lanes) {
  return (ByteLanes)(((ByteLanes)(lanes == (ByteLanes{} + static_cast<unsigned char>(kWanted)))) | ...);
}

template <char... kWanted>
constexpr std::array<bool, 256> MakeByteSet() {
  std::array<bool, 256> set{};
  ((set[static_cast<unsigned char>(kWanted)] = true), ...);
  return set;
}

/// The first wanted byte at or after `from`, or the text's size: for short texts and wanted bytes that are
/// far apart. O(distance).
template <char... kWanted>
std::size_t FindByte(std::string_view text, std::size_t from) {
  for (; text.size() - from >= sizeof(ByteLanes); from += sizeof(ByteLanes)) {
    const auto words = (WordPair)MatchLanes<kWanted...>(LoadLanes(text.data() + from));
    if ((words[0] | words[1]) != 0) return from + FirstSetByte(words);
  }
  static constexpr std::array<bool, 256> kSet = MakeByteSet<kWanted...>();
  while (from < text.size() && !kSet[static_cast<unsigned char>(text[from])]) ++from;
  return from;
}

/// One bit for each of 8 bytes that are 0 or 0xFF.
inline std::uint64_t CollapseLanes(std::uint64_t bytes) {
  return ((bytes & 0x8040201008040201u) * 0x0101010101010101u) >> 56;
}

/// Walks forward through a text from one wanted byte to the next, 64 bytes at a time: on markup, where such
/// bytes stand close together, this is faster than a memchr for each. A zero byte cannot be wanted.
template <char... kWanted>
class ByteScanner {
 public:
  explicit ByteScanner(std::string_view text) : m_text(text) { Load(0); }

  /// The first wanted byte at or after `from`, or the text's size. `from` must not go back by more than the
  /// block that was looked at last. Amortised O(distance).
  std::size_t Next(std::size_t from) {
    if (from >= m_text.size()) return m_text.size();
    if (from - m_base >= kBlock) Load(from);
    const std::size_t skipped = from - m_base;
    std::uint64_t bits = m_bits >> skipped << skipped;
    while (bits == 0) {
      if (m_text.size() - m_base <= kBlock) return m_text.size();
      Load(m_base + kBlock);
      bits = m_bits;
    }
    return m_base + static_cast<std::size_t>(std::countr_zero(bits));
  }

 private:
  static constexpr std::size_t kBlock = 64;

  void Load(std::size_t base) {
    m_base = base;
    if (m_text.size() - base >= kBlock) {
      m_bits = BitsOf(m_text.data() + base);
    } else {
      char tail[kBlock] = {};
      if (base < m_text.size()) std::memcpy(tail, m_text.data() + base, m_text.size() - base);
      m_bits = BitsOf(tail);
    }
  }

  static std::uint64_t BitsOf(const char* block) {
    const ByteLanes first = MatchLanes<kWanted...>(LoadLanes(block));
    const ByteLanes second = MatchLanes<kWanted...>(LoadLanes(block + 16));
    const ByteLanes third = MatchLanes<kWanted...>(LoadLanes(block + 32));
    const ByteLanes fourth = MatchLanes<kWanted...>(LoadLanes(block + 48));
    const auto any = (WordPair)((first | second) | (third | fourth));
    if ((any[0] | any[1]) == 0) return 0;
    return BitsOf16(first) | BitsOf16(second) << 16 | BitsOf16(third) << 32 | BitsOf16(fourth) << 48;
  }

  static std::uint64_t BitsOf16(ByteLanes matches) {
    const auto words = (WordPair)matches;
    return CollapseLanes(words[0]) | CollapseLanes(words[1]) << 8;
  }

  std::string_view m_text;
  std::size_t m_base = 0;
  std::uint64_t m_bits = 0;
};

}  // namespace quill::content
