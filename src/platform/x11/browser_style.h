#pragma once
#include <string>
#include <string_view>

namespace quill::platform::x11 {

/// A style attribute's value without the properties that browsers add and that change nothing: their
/// own prefixed ones, `orphans` and `widows`, and a few at their initial value. The value is as it stands in
/// the markup (entities included), and what is kept is kept literally. O(style).
std::string DropSilentProperties(std::string_view style);

}  // namespace quill::platform::x11
