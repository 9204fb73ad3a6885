#pragma once
#include <array>
#include <compare>
#include <cstdint>
#include <string_view>

namespace quill::content {

using VersionParts = std::array<std::int64_t, 4>;

/// The four integers of a dotted version; 0 for a part that is missing or no number. The fourth part begins
/// after the third dot and is read up to its first character that is no digit.
VersionParts SplitVersion(std::string_view text);

/// Part by part; the first difference decides. "2.1" equals "2.1.0.0".
std::strong_ordering CompareVersions(std::string_view left, std::string_view right);

}  // namespace quill::content
