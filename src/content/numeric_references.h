#pragma once
#include <string>

namespace quill::content {

/// Replaces each "&#…;" within the text as `DecodeHtmlEntities` describes. O(text).
void DecodeNumericReferences(std::string& text);

}  // namespace quill::content
