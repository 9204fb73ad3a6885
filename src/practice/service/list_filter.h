#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quill::practice {

/// A condition on the entries of a list, as the service understands it: comparisons "OPERAND eq 'TEXT'" and
/// "contains(OPERAND,'TEXT')" joined by "and", an operand being a field or tolower(field). A quote within a
/// text is doubled.
class ListFilter {
 public:
  /// The value of a field; nothing when there is no such field.
  using Field = std::function<std::optional<std::string>(std::string_view name)>;

  /// Nothing when the text is malformed.
  static std::optional<ListFilter> Parse(std::string_view text);

  /// Whether an entry meets all conditions; nothing when it has not all of the fields.
  std::optional<bool> Matches(const Field& field) const;

 private:
  struct Condition {
    std::string field;
    bool isLower = false;
    bool isContains = false;
    std::string text;
  };
  class Parser;

  std::vector<Condition> m_conditions;
};

}  // namespace quill::practice
