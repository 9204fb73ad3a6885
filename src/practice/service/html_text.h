#pragma once
#include <string>
#include <string_view>

namespace quill::practice {

/// A text as it stands in HTML, also within a quoted attribute.
std::string EscapeHtml(std::string_view text);

/// A small page of its own, with a title, for light and dark; `content` is HTML.
std::string SmallPage(std::string_view title, std::string_view content);

/// Escapes every byte but letters, digits, "-", ".", "_" and "~".
std::string EscapeUrlPart(std::string_view text);

}  // namespace quill::practice
