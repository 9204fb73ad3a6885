#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace quill::ui {

/// The first lines of a code.
struct CodeExcerpt {
  std::string code;
  bool isPart = false;  ///< something was left out
};

inline constexpr int kExcerptLines = 200;
inline constexpr std::size_t kExcerptBytes = 20'000;

/// What a preview is made of: as many lines and bytes as it can show at once. No character is cut in two.
CodeExcerpt ExcerptOfCode(std::string_view code);

/// Coloured code for `PagePreview`, which breaks lines at "<br>" and at line feeds, where pages have only the
/// first. The colour of the whole page, which no page takes over, goes. O(html).
std::string HtmlForPreview(std::string_view html);

}  // namespace quill::ui
