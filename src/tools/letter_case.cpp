#include "tools/letter_case.h"

#include "content/unicode_text.h"

namespace quill::tools {
namespace {

// The C library's classification in the "C" locale, for units of any size.
constexpr bool IsUpper(char16_t c) {
  return c >= u'A' && c <= u'Z';
}
constexpr bool IsLower(char16_t c) {
  return c >= u'a' && c <= u'z';
}
constexpr char16_t Lower(char16_t c) {
  return IsUpper(c) ? static_cast<char16_t>(c + 32) : c;
}
constexpr char16_t Upper(char16_t c) {
  return IsLower(c) ? static_cast<char16_t>(c - 32) : c;
}
constexpr bool IsSpace(char16_t c) {
  return c == u' ' || (c >= u'\t' && c <= u'\r');
}

/// Appends the low 8 bits of a unit as a Latin-1 character; nothing for 0.
void AppendLow8Bits(std::string& out, char16_t unit) {
  const unsigned char low = static_cast<unsigned char>(unit & 0xFF);
  if (low == 0) return;
  if (low < 0x80) {
    out += static_cast<char>(low);
  } else {
    out += static_cast<char>(0xC0 | (low >> 6));
    out += static_cast<char>(0x80 | (low & 0x3F));
  }
}

std::string Convert(std::string_view text, CaseType type) {
  switch (type) {
    case CaseType::Lower:
      return content::ToLower(text);
    case CaseType::Upper:
      return content::ToUpper(text);
    case CaseType::Toggle:
      return ToggleCase(text);
    case CaseType::CapitalizeWords:
      return CapitalizeEachWord(text);
  }
  return std::string(text);
}

bool IsOnlyWhiteSpace(std::string_view text) {
  return text.find_first_not_of(" \t\r\n\v\f") == std::string_view::npos;
}

/// Changes each text node on the way down.
class CaseWalker final : public pugi::xml_tree_walker {
 public:
  explicit CaseWalker(CaseType type) : m_type(type) {}

  bool for_each(pugi::xml_node& node) override {
    if (node.type() != pugi::node_pcdata && node.type() != pugi::node_cdata) return true;
    const std::string_view text = node.value();
    if (IsOnlyWhiteSpace(text)) return true;
    node.set_value(Convert(text, m_type).c_str());
    ++m_count;
    return true;
  }

  std::int64_t count() const { return m_count; }

 private:
  CaseType m_type;
  std::int64_t m_count = 0;
};

}  // namespace

std::int64_t ChangeCase(pugi::xml_node element, CaseType type) {
  CaseWalker walker(type);
  element.traverse(walker);
  return walker.count();
}

std::string ToggleCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char16_t unit : content::ToUtf16(text))
    AppendLow8Bits(result, IsUpper(unit) ? Lower(unit) : Upper(unit));
  return result;
}

std::string CapitalizeEachWord(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool atStart = true;
  for (const char16_t unit : content::ToUtf16(text)) {
    if (atStart) {
      AppendLow8Bits(result, Upper(unit));
      atStart = false;
    } else {
      AppendLow8Bits(result, Lower(unit));
      atStart = IsSpace(unit) || unit == u';';
    }
  }
  return result;
}

}  // namespace quill::tools
