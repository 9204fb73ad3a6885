#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// Writes "&=;" for each "=" inside alt="…" values, so that no step takes it for an attribute's. Stops at a
/// value without closing quote. O(text).
std::string ProtectAltTexts(std::string_view text);

/// The reverse: "&=;" inside alt="…" values becomes "=". A value that thereby ends in "alt=" makes its own
/// closing quote open another value. O(text).
std::string RestoreAltTexts(std::string_view text);

}  // namespace quill::content
