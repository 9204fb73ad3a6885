#pragma once
#include <string>
#include <string_view>

namespace quill::platform::x11 {

/// Clipboard HTML as UTF-8: takes UTF-8 and UTF-16 of either byte order, with or without a byte-order
/// mark; drops the mark and a closing NUL. Halves of surrogate pairs become U+FFFD. O(bytes).
std::string HtmlBytesToUtf8(std::string_view bytes);

/// Latin-1 (the form STRING) as UTF-8.
std::string Latin1ToUtf8(std::string_view bytes);

/// True when the text is ASCII, which every text form carries alike.
bool IsAscii(std::string_view text);

}  // namespace quill::platform::x11
