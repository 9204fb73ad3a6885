#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::content {

/// Base64 with padding and without line breaks (RFC 4648, section 4). O(bytes).
std::string EncodeBase64(std::string_view bytes);

/// The bytes behind a Base64 text; line breaks and blanks between the groups are skipped. Nothing when
/// another character, or the wrong amount of padding, is met. O(text).
std::optional<std::string> DecodeBase64(std::string_view text);

}  // namespace quill::content
