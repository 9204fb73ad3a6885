#pragma once
#include <string>
#include <string_view>

namespace quill::content {

inline constexpr std::string_view kConditionalStart = "<![if ";
inline constexpr std::string_view kConditionalEnd = "<![endif]>";

/// Cuts out each "<![if " up to and including the next "<![endif]>", also where a cut joins the text
/// into a new start. Stops at a start without end. Case-sensitive, O(text).
std::string RemoveConditionalBlocks(std::string_view text);

}  // namespace quill::content
