#pragma once
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "base/result.h"
#include "online/page_html.h"

namespace quill::online {

/// Whether the element is a direct child of a "ul": the service puts headings there that are none to a
/// reader.
bool MSBug(pugi::xml_node element);

/// 1 to 6 for "h1" to "h6", 0 for any other name; upper case is another name.
int GetHtmlHeadingNum(std::string_view tagName);

/// Whether the element is a heading that is listed.
bool IsListedHeading(pugi::xml_node element);

/// The contents block of a page's headings with links to them, a step to the right for each level. `title` is
/// the text above; `pageLink` is the page's client link in any form. O(page + result).
Result<std::string, PageProblem> GenerateTOCHeadingsHtml(std::string_view pageHtml, std::string_view pageLink,
                                                         std::string_view title);

}  // namespace quill::online
