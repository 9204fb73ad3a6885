#include "online/text_pattern.h"

#include <unicode/uchar.h>

#include "content/unicode_text.h"
#include "online/block_text.h"

namespace quill::online {
namespace {

constexpr char32_t kNoBreakSpace = 0xA0;
constexpr char32_t kCapitalIWithDot = 0x130;
/// Bytes that are no text are in no page, not even where something unknown is.
constexpr char32_t kNoText = kUnknownChar + 1;

}  // namespace

TextPattern::TextPattern(std::string_view find, bool matchesCase) : m_matchesCase(matchesCase) {
  for (std::size_t at = 0; at < find.size();) {
    const content::DecodedChar c = content::DecodeUtf8(find, at);
    m_codes += c.length == 0 ? kNoText : Folded(c.code);
    at += c.length == 0 ? 1 : c.length;
  }
  m_fallback.assign(m_codes.size(), 0);
  for (std::size_t i = 1, length = 0; i < m_codes.size(); ++i) {
    while (length > 0 && m_codes[i] != m_codes[length]) length = m_fallback[length - 1];
    if (m_codes[i] == m_codes[length]) ++length;
    m_fallback[i] = length;
  }
}

char32_t TextPattern::Folded(char32_t code) const {
  if (code == kNoBreakSpace) return U' ';
  if (m_matchesCase || code == kCapitalIWithDot || code >= kUnknownChar) return code;
  if (code < 0x80) return code >= U'A' && code <= U'Z' ? code + (U'a' - U'A') : code;
  return static_cast<char32_t>(u_tolower(static_cast<UChar32>(code)));
}

std::vector<std::size_t> TextPattern::FindAll(const std::u32string& text) const {
  std::vector<std::size_t> found;
  if (m_codes.empty() || text.size() < m_codes.size()) return found;
  std::size_t length = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t code = Folded(text[i]);
    while (length > 0 && code != m_codes[length]) length = m_fallback[length - 1];
    if (code == m_codes[length]) ++length;
    if (length < m_codes.size()) continue;
    found.push_back(i + 1 - length);
    length = 0;
  }
  return found;
}

}  // namespace quill::online
