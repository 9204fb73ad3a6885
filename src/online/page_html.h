#pragma once
#include <functional>
#include <pugixml.hpp>
#include <string_view>

#include "base/result.h"
#include "content/working_document.h"

namespace quill::online {

/// Why nothing could be made of a page.
enum class PageProblem {
  NotXml,        ///< the HTML is not well-formed, "&" left aside
  NothingFound,  ///< what was looked for does not occur
};

/// The HTML of an online page as a tree. Every "&" is a no-break space in it (see protected_ampersands.h), so
/// named entities are no obstacle; they come back with `RestoreAmpersands`. O(html).
Result<content::WorkingDocument> ParsePageHtml(std::string_view html);

using ElementTest = bool (*)(pugi::xml_node element);
using ElementVisitor = std::function<void(pugi::xml_node element, std::string_view text)>;

/// Calls `visit` for every element of the page that is wanted, parents before children, in document order.
///
/// The text is the element's string value: all text and CDATA sections inside it, without comments. It is
/// good during the call. One walk without recursion, also for elements within each other. O(page).
void VisitElements(const content::WorkingDocument& page, ElementTest isWanted, const ElementVisitor& visit);

/// The value of the element's attribute of that exact name; "" without one.
std::string_view AttributeText(pugi::xml_node element, const char* name);

}  // namespace quill::online
