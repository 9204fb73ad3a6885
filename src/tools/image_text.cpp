#include "tools/image_text.h"

#include "content/byte_scan.h"
#include "content/entities.h"
#include "content/find_text.h"
#include "content/text_between.h"
#include "content/text_sink.h"
#include "content/unicode_text.h"

namespace quill::tools {
namespace {

constexpr std::string_view kIdeographicStop = "\xE3\x80\x82";  // 。
constexpr std::string_view kFullWidthMark = "\xEF\xBC\x81";    // ！
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Whether the blank at `at` is one that recognition added.
bool IsExtraSpace(std::string_view text, std::size_t at) {
  if (at + 1 == text.size()) return false;
  const char next = text[at + 1];
  if ((at == 0 || !IsAscii(text[at - 1])) && !IsAscii(next)) return true;
  return at + 2 < text.size() && (next == '\n' || next == '\r') && IsAscii(text[at + 2]);
}

/// `MergeAsParagraph` on valid UTF-8. The rule counts UTF-16 units; a character of four bytes is two of
/// them, and neither half is ever what the rule looks for.
class ParagraphMerger {
 public:
  ParagraphMerger(std::string_view text, std::string& result)
      : m_text(text), m_scanner(text), m_sink(result, text.size() + text.size() / 16) {}

  void Merge() {
    while (m_at < m_text.size()) {
      const std::size_t found = m_scanner.Next(m_at);
      m_sink.Append(m_text.substr(m_at, found - m_at));
      m_at = found;
      if (m_at < m_text.size()) Step();
    }
  }

 private:
  void Step() {
    switch (m_text[m_at]) {
      case '\n':
        ++m_at;
        break;
      case '\r':
        HandleCarriageReturn();
        break;
      case '.':
      case '!':
        AppendMark(m_text.substr(m_at, 1));
        break;
      default: {
        const std::string_view character = m_text.substr(m_at, 3);
        if (character == kIdeographicStop || character == kFullWidthMark) {
          AppendMark(character);
        } else {
          m_sink.Append(m_text[m_at++]);
        }
      }
    }
  }

  void HandleCarriageReturn() {
    const std::size_t after = SecondNext();
    if (IsReturnTwoUnitsBack() || (after < m_text.size() && m_text[after] == '\r')) {
      m_sink.Append('\n');
      ++m_at;
      SkipUnit();
    } else {
      const bool isBesideSpace =
          (m_at > 0 && IsSpace(m_text[m_at - 1])) || (after < m_text.size() && IsSpace(m_text[after]));
      if (!isBesideSpace) m_sink.Append(' ');
      ++m_at;
    }
  }

  void AppendMark(std::string_view mark) {
    m_sink.Append(mark);
    m_at += mark.size();
    if (m_at < m_text.size() && IsSpace(m_text[m_at])) m_sink.Append('\n');
  }

  /// The bytes of the character at `at`.
  std::size_t LengthAt(std::size_t at) const {
    const auto lead = static_cast<unsigned char>(m_text[at]);
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  }

  /// Where the unit two after this one begins; the end when there is none, or when it is half a character.
  std::size_t SecondNext() const {
    if (m_at + 1 >= m_text.size()) return m_text.size();
    const std::size_t length = LengthAt(m_at + 1);
    return length == 4 ? m_text.size() : m_at + 1 + length;
  }

  bool IsReturnTwoUnitsBack() const {
    if (m_at < 2) return false;
    std::size_t previous = m_at - 1;
    while ((static_cast<unsigned char>(m_text[previous]) & 0xC0) == 0x80) --previous;
    return m_at - previous < 4 && previous > 0 && m_text[previous - 1] == '\r';
  }

  /// Leaves one unit out; of a character of two the other half is left over.
  void SkipUnit() {
    if (m_at >= m_text.size()) return;
    const std::size_t length = LengthAt(m_at);
    if (length == 4) m_sink.Append(kReplacement);
    m_at += length;
  }

  std::string_view m_text;
  content::ByteScanner<'\n', '\r', '.', '!', '\xE3', '\xEF'> m_scanner;
  content::TextSink m_sink;
  std::size_t m_at = 0;
};

}  // namespace

std::string ImageAltText(std::string_view html) {
  const std::string_view tag = content::TextBetween(html, "<img", ">");
  std::string text(content::TextBetween(tag, "alt=\"", "\""));
  content::ReplaceAllWithin(text, "&#13;", "\r");
  content::ReplaceAllWithin(text, "&#10;", "\n");
  return content::DecodeHtmlEntities(text);
}

std::string ClearExtraSpaces(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  content::ByteScanner<' '> spaces(text);
  std::size_t copied = 0;
  for (std::size_t at = 0; (at = spaces.Next(at)) < text.size(); ++at) {
    if (!IsExtraSpace(text, at)) continue;
    result.append(text.substr(copied, at - copied));
    copied = at + 1;
  }
  return result.append(text.substr(copied));
}

std::string MergeAsParagraph(std::string_view text) {
  if (!content::IsValidUtf8(text)) return MergeAsParagraph(content::ToUtf8(content::ToUtf16(text)));
  std::string result;
  ParagraphMerger(text, result).Merge();
  return result;
}

}  // namespace quill::tools
