#pragma once
#include <string_view>
#include <vector>

namespace quill::content {

/// Whether a name occurs twice; the order of `names` may change. O(names), and O(n log n) for names that
/// were chosen to collide.
bool HasDuplicates(std::vector<std::string_view>& names);

}  // namespace quill::content
