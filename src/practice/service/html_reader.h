#pragma once
#include <pugixml.hpp>
#include <string_view>

#include "base/result.h"

namespace quill::practice {

/// Appends what a piece of HTML holds to `parent`, read as browsers read it and reduced to what a practice
/// page keeps (see page_elements.h). Groups of rows are unwrapped, a `div` stays when it has a data-id.
///
/// Elements below the 500th level are unwrapped. Fails when there are so many open elements that reading them
/// would not be safe, before anything is appended. O(html).
Status<> AppendHtml(pugi::xml_node parent, std::string_view html);

}  // namespace quill::practice
