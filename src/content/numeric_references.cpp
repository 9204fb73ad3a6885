#include "content/numeric_references.h"

#include <algorithm>
#include <cstdint>

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

/// Writes characters; holds a high surrogate back until it is known whether its other half follows.
class Output {
 public:
  explicit Output(std::size_t expected) { m_text.reserve(expected); }

  void Append(std::string_view text) {
    if (text.empty()) return;
    Flush();
    m_text.append(text);
  }
  void Append(std::uint32_t code) {
    if (m_high != 0 && code >= 0xDC00 && code <= 0xDFFF) {
      AppendUtf8(m_text, 0x10000 + ((m_high - 0xD800) << 10) + (code - 0xDC00));
      m_high = 0;
      return;
    }
    Flush();
    if (code >= 0xD800 && code <= 0xDBFF) {
      m_high = code;
    } else {
      AppendUtf8(m_text, code);
    }
  }
  std::string Finish() {
    Flush();
    return std::move(m_text);
  }

 private:
  void Flush() {
    if (m_high != 0) AppendUtf8(m_text, m_high);
    m_high = 0;
  }

  std::string m_text;
  std::uint32_t m_high = 0;
};

}  // namespace

std::string DecodeNumericReferences(std::string_view text) {
  constexpr std::size_t kNone = std::string_view::npos;
  Output out(text.size());
  std::size_t copied = 0;
  for (std::size_t open; (open = text.find("&#", copied)) != kNone;) {
    std::size_t end = text.find(';', open + 2);
    if (end == kNone) break;
    out.Append(text.substr(copied, open - copied));
    std::uint32_t code = CodeOf(text.substr(open + 2, end - open - 2));
    // A decoded "&" opens a new reference when "#…;" follows.
    while (code == '&' && text.substr(end + 1, 1) == "#") {
      const std::size_t next = text.find(';', end + 2);
      if (next == kNone) break;
      code = CodeOf(text.substr(end + 2, next - end - 2));
      end = next;
    }
    out.Append(code);
    copied = end + 1;
  }
  out.Append(text.substr(copied));
  return out.Finish();
}

}  // namespace quill::content
