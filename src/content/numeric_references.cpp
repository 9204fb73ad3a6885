#include "content/numeric_references.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "content/unicode_text.h"

namespace quill::content {
namespace {

constexpr std::uint32_t kTooLarge = 0x110000;

int DigitValue(char c, int base) {
  if (c >= '0' && c <= '9') return c - '0';
  const int letter = (c | 0x20) - 'a';
  return base == 16 && letter >= 0 && letter < 6 ? letter + 10 : -1;
}

/// The code that the text between "&#" and ";" stands for.
std::uint32_t CodeOf(std::string_view number) {
  const int base = number.starts_with('x') ? 16 : 10;
  if (base == 16) number.remove_prefix(1);
  std::uint32_t code = 0;
  for (const char c : number) {
    const int digit = DigitValue(c, base);
    if (digit < 0) break;
    code = std::min(code * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit), kTooLarge);
  }
  return code;
}

/// Writes over the text behind the place that is being read: no reference is shorter than what it stands
/// for. Holds a high surrogate back until it is known whether its other half follows.
class Output {
 public:
  explicit Output(std::string& text) : m_text(text) {}

  /// Keeps `count` bytes of the text from `from` on.
  void Keep(std::size_t from, std::size_t count) {
    if (count == 0) return;
    Flush();
    std::memmove(m_text.data() + m_size, m_text.data() + from, count);
    m_size += count;
  }
  void Append(std::uint32_t code) {
    if (m_high != 0 && code >= 0xDC00 && code <= 0xDFFF) {
      Write(0x10000 + ((m_high - 0xD800) << 10) + (code - 0xDC00));
      m_high = 0;
      return;
    }
    Flush();
    if (code >= 0xD800 && code <= 0xDBFF) {
      m_high = code;
    } else {
      Write(code);
    }
  }
  void Finish() {
    Flush();
    m_text.resize(m_size);
  }

 private:
  void Flush() {
    if (m_high != 0) Write(m_high);
    m_high = 0;
  }
  void Write(std::uint32_t code) {
    std::string character;
    AppendUtf8(character, code);
    std::memcpy(m_text.data() + m_size, character.data(), character.size());
    m_size += character.size();
  }

  std::string& m_text;
  std::size_t m_size = 0;
  std::uint32_t m_high = 0;
};

}  // namespace

void DecodeNumericReferences(std::string& text) {
  constexpr std::size_t kNone = std::string_view::npos;
  const std::string_view all = text;
  Output out(text);
  std::size_t read = 0;
  for (std::size_t open; (open = all.find("&#", read)) != kNone;) {
    std::size_t end = all.find(';', open + 2);
    if (end == kNone) break;
    std::uint32_t code = CodeOf(all.substr(open + 2, end - open - 2));
    out.Keep(read, open - read);
    // A decoded "&" opens a new reference when "#…;" follows.
    while (code == '&' && all.substr(end + 1, 1) == "#") {
      const std::size_t next = all.find(';', end + 2);
      if (next == kNone) break;
      code = CodeOf(all.substr(end + 2, next - end - 2));
      end = next;
    }
    out.Append(code);
    read = end + 1;
  }
  out.Keep(read, all.size() - read);
  out.Finish();
}

}  // namespace quill::content
