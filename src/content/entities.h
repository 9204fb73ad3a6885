#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// Replaces the named Latin-1 references, then "&amp;", "&lt;", "&gt;", "&apos;", "&quot;" in this order,
/// then numeric references.
///
/// Deliberately not one decoding: "&amp;lt;" ends as "<", and a decoded "&" before "#…;" opens a new
/// reference. A numeric reference runs to the next ";", whatever stands between; digits that do not begin
/// a number mean U+0000, hexadecimal needs a lower-case "x". Two references to a surrogate pair make one
/// character; a lone half and codes above U+10FFFF become U+FFFD. O(text).
std::string DecodeHtmlEntities(std::string_view text);

/// Escapes "&", "<" and ">"; quotes stay. O(text).
std::string EscapeXmlText(std::string_view text);

/// Replaces "&nbsp;" by a blank, "&lt;", "&gt;", "&apos;", "&quot;", and last "&amp;": "&amp;lt;" stays
/// "&lt;". O(text).
std::string DecodeBasicEntities(std::string_view text);

}  // namespace quill::content
