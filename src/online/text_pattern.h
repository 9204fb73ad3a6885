#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quill::online {

/// A text that is looked for in many others. A no-break space is a blank; without the case, letters are the
/// same when the simple lower-case forms of their code points are, and U+0130 only equals itself.
class TextPattern {
 public:
  TextPattern(std::string_view find, bool matchesCase);

  /// Where it begins, in order; each is looked for behind the one before. An empty pattern is nowhere.
  /// O(text), whatever the pattern repeats.
  std::vector<std::size_t> FindAll(const std::u32string& text) const;

  /// In code points.
  std::size_t Length() const { return m_codes.size(); }

 private:
  char32_t Folded(char32_t code) const;

  bool m_matchesCase;
  std::u32string m_codes;
  /// For each beginning of the pattern, how long the longest shorter one is that it also ends with.
  std::vector<std::size_t> m_fallback;
};

}  // namespace quill::online
