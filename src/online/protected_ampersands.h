#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// The text with every "&" as a no-break space, which no parser takes for the beginning of a reference, and
/// back. No-break spaces that were in the text come back as "&" too. O(text).
std::string ProtectAmpersands(std::string_view text);
std::string RestoreAmpersands(std::string_view text);

}  // namespace quill::online
