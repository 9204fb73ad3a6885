#include "content/xml_declaration.h"

#include "content/find_text.h"
#include "content/xml_chars.h"

namespace quill::content {
namespace {

constexpr std::size_t kMalformed = std::string_view::npos;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// "1." and any digits: later minor versions are read as 1.0.
bool IsVersion(std::string_view version) {
  if (!version.starts_with("1.")) return false;
  for (const char c : version.substr(2)) {
    if (!IsDigit(c)) return false;
  }
  return true;
}

bool IsUtf8Name(std::string_view encoding) {
  for (const std::string_view name : {std::string_view("utf-8"), std::string_view("utf8")}) {
    if (encoding.size() == name.size() && FindIgnoringAsciiCase(encoding, name) == 0) return true;
  }
  return false;
}

/// Reads the declaration's pieces from left to right.
class Reader {
 public:
  explicit Reader(std::string_view text) : m_text(text) {}

  std::size_t at() const { return m_at; }
  bool SkipSpace() {
    const std::size_t begin = m_at;
    while (m_at < m_text.size() && IsXmlSpace(m_text[m_at])) ++m_at;
    return m_at > begin;
  }
  bool Take(std::string_view expected) {
    if (!m_text.substr(m_at).starts_with(expected)) return false;
    m_at += expected.size();
    return true;
  }
  /// = "value" with either quote; false when that is not what follows.
  bool TakeValue(std::string_view& value) {
    SkipSpace();
    if (!Take("=")) return false;
    SkipSpace();
    const std::string_view quote = m_text.substr(m_at, 1);
    if (quote != "\"" && quote != "'") return false;
    const std::size_t end = m_text.find(quote.front(), m_at + 1);
    if (end == kMalformed) return false;
    value = m_text.substr(m_at + 1, end - m_at - 1);
    m_at = end + 1;
    return true;
  }

 private:
  std::string_view m_text;
  std::size_t m_at = 0;
};

}  // namespace

std::size_t FindXmlDeclarationEnd(std::string_view text) {
  Reader reader(text);
  if (!reader.Take("<?xml") || !reader.SkipSpace()) return 0;
  std::string_view value;
  if (!reader.Take("version") || !reader.TakeValue(value) || !IsVersion(value)) return kMalformed;
  bool hasSpace = reader.SkipSpace();
  if (hasSpace && reader.Take("encoding")) {
    if (!reader.TakeValue(value) || !IsUtf8Name(value)) return kMalformed;
    hasSpace = reader.SkipSpace();
  }
  if (hasSpace && reader.Take("standalone")) {
    if (!reader.TakeValue(value) || (value != "yes" && value != "no")) return kMalformed;
    reader.SkipSpace();
  }
  return reader.Take("?>") ? reader.at() : kMalformed;
}

}  // namespace quill::content
