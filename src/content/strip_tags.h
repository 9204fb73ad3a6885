#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// The text outside "<…>". Stops at "<>" and at a "<" without ">": the rest, tags included, stays as it is.
/// Entities are not decoded. O(html).
std::string StripTags(std::string_view html);

}  // namespace quill::content
