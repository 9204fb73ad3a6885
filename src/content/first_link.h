#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// The target and the visible text of a link; both empty when there is none.
struct FirstLink {
  std::string target;  ///< percent escapes undone; empty when the result would not be UTF-8
  std::string text;    ///< without tags
};

/// The first "<a" element of a fragment, entities decoded before it is looked for. O(html).
FirstLink GetFirstLink(std::string_view html);

}  // namespace quill::content
