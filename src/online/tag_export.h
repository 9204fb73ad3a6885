#pragma once
#include <string>
#include <string_view>

#include "base/result.h"
#include "online/page_html.h"

namespace quill::online {

enum class TagFormat { Csv = 0, Xml = 1 };

/// The text of a file with every tagged element of the page, a line each: whether it is completed (1 or 0),
/// the tag, the element's text and the link to it.
///
/// An attribute with several tags makes one line with all of them, or, when ":completed" occurs, with what
/// stands before the first of that. Tags and texts go out as the page's HTML has them; in CSV the text is
/// enclosed in double quotes, those inside stay single. `pageLink` is the page's client link in any form.
/// O(page + result).
Result<std::string, PageProblem> GenerateTags2Content(TagFormat format, std::string_view pageHtml,
                                                      std::string_view pageLink);

}  // namespace quill::online
