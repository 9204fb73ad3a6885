#include "practice/service/list_filter.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::practice {
namespace {

bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' || c == '_';
}

}  // namespace

/// Reads from the front; once something is not as it must be, everything after fails.
class ListFilter::Parser {
 public:
  explicit Parser(std::string_view text) : m_rest(text) {}

  std::optional<ListFilter> All() {
    ListFilter filter;
    do {
      filter.m_conditions.push_back(OneCondition());
    } while (m_isGood && TakeWord("and"));
    SkipBlanks();
    if (!m_isGood || !m_rest.empty()) return std::nullopt;
    return filter;
  }

 private:
  Condition OneCondition() {
    Condition condition;
    condition.isContains = TakeCall("contains");
    condition.isLower = TakeCall("tolower");
    condition.field = Name();
    if (condition.isLower) Need(')');
    if (condition.isContains) {
      Need(',');
      condition.text = Literal();
      Need(')');
      if (TakeWord("eq")) m_isGood = m_isGood && TakeWord("true");
    } else {
      m_isGood = m_isGood && TakeWord("eq");
      condition.text = Literal();
    }
    return condition;
  }

  void SkipBlanks() {
    while (m_rest.starts_with(' ')) m_rest.remove_prefix(1);
  }

  std::string_view PeekName() {
    SkipBlanks();
    const auto* const end = std::find_if_not(m_rest.begin(), m_rest.end(), IsNameChar);
    return m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
  }

  bool TakeWord(std::string_view word) {
    if (PeekName() != word) return false;
    m_rest.remove_prefix(word.size());
    return true;
  }

  bool TakeCall(std::string_view name) {
    const std::string_view before = m_rest;
    if (TakeWord(name) && Take('(')) return true;
    m_rest = before;
    return false;
  }

  bool Take(char c) {
    SkipBlanks();
    if (!m_rest.starts_with(c)) return false;
    m_rest.remove_prefix(1);
    return true;
  }

  void Need(char c) { m_isGood = m_isGood && Take(c); }

  std::string Name() {
    const std::string name(PeekName());
    m_isGood = m_isGood && !name.empty();
    m_rest.remove_prefix(name.size());
    return name;
  }

  std::string Literal() {
    std::string text;
    Need('\'');
    while (m_isGood) {
      const std::size_t quote = m_rest.find('\'');
      m_isGood = quote != std::string_view::npos;
      if (!m_isGood) break;
      text += m_rest.substr(0, quote);
      m_rest.remove_prefix(quote + 1);
      if (!m_rest.starts_with('\'')) break;
      text += '\'';
      m_rest.remove_prefix(1);
    }
    return text;
  }

  std::string_view m_rest;
  bool m_isGood = true;
};

std::optional<ListFilter> ListFilter::Parse(std::string_view text) {
  return Parser(text).All();
}

std::optional<bool> ListFilter::Matches(const Field& field) const {
  bool all = true;
  for (const Condition& condition : m_conditions) {
    std::optional<std::string> value = field(condition.field);
    if (!value) return std::nullopt;
    if (condition.isLower) value = content::ToLower(*value);
    const bool meets =
        condition.isContains ? value->find(condition.text) != std::string::npos : *value == condition.text;
    all = all && meets;
  }
  return all;
}

}  // namespace quill::practice
