#pragma once
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quill::practice {

/// Appends a text as HTML and XML both understand it, no-break spaces by name. Characters that XML does not
/// know are left out, bytes that are not UTF-8 become U+FFFD.
void AppendText(std::string& out, std::string_view text);

/// Appends ` NAME="VALUE"`, likewise.
void AppendAttribute(std::string& out, std::string_view name, std::string_view value);

/// What `parent` holds, as a page's file has it: HTML with open `br` and `img`.
std::string PageHtml(pugi::xml_node parent);

}  // namespace quill::practice
