#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quill::tools {

/// The formulas inserted last, the latest first, none twice.
class RecentFormulas {
 public:
  static constexpr std::size_t kMost = 20;
  static constexpr std::size_t kLongest = 10'000;  ///< bytes; the settings file is no place for more

  RecentFormulas() = default;

  /// Reads what `ToText` wrote. Empty pieces are passed over and an escape that is none stands for itself.
  static RecentFormulas FromText(std::string_view text);

  /// Puts a formula in front; an empty one, or one longer than `kLongest`, is not kept.
  void Add(std::string_view formula);

  const std::vector<std::string>& Items() const { return m_items; }

  /// One line of ASCII without control characters for a settings value: formulas with "|" between them; in
  /// them "%", "|" and every byte that is not visible ASCII are written as %XX.
  std::string ToText() const;

 private:
  std::vector<std::string> m_items;
};

}  // namespace quill::tools
