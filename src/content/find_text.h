#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace quill::content {

/// Position of the first `needle` at or after `from`, or npos; an empty needle is found at `from`.
///
/// Looks for the needle's rarest byte with memchr, which on markup is several times faster than stopping
/// at every "<". O(text) for needles of bounded length.
std::size_t FindText(std::string_view text, std::string_view needle, std::size_t from = 0);

/// The same for letters A-Z in any case; other characters match exactly.
std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view needle, std::size_t from = 0);

/// `text` with every `needle`, left to right, replaced; an empty needle replaces nothing. O(text + result).
std::string ReplaceAll(std::string_view text, std::string_view needle, std::string_view replacement);

/// The same within `text`, for a replacement that is not longer than `needle`: no second buffer. O(text).
void ReplaceAllWithin(std::string& text, std::string_view needle, std::string_view replacement);

}  // namespace quill::content
