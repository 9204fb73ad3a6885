#pragma once
#include <string>
#include <string_view>

namespace quill::content {

/// Turns a clipboard fragment into the text of a well-formed document rooted at `quillText`.
///
/// Repairs only what OneNote's clipboard is known to write: bare attribute values, open `br` and `img`,
/// conditional blocks, no-break spaces. Anything else is left for the parser to refuse. One pass on what
/// OneNote writes; a few passes when a conditional block or an odd alt text is met. O(fragment).
std::string HtmlToXml(std::string_view fragment);

/// The fragment inside `quillText`, no-break spaces written as "&nbsp;" again; "" when there is no such
/// element or it is empty. Works in the text it is given, so hand it over when it is not needed any more:
/// for a page of several megabytes fresh memory costs more than the work. O(xml).
std::string XmlToHtml(std::string xml);

}  // namespace quill::content
