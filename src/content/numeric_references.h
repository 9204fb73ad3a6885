#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// Replaces each "&#…;" as `DecodeHtmlEntities` describes. O(text).
std::string DecodeNumericReferences(std::string_view text);

}  // namespace quill::content
