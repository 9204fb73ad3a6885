#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::online {

/// The line that leads from the notebook over section groups and section to the page, as HTML.
///
/// `notebooksBody` is the service's list of notebooks; nothing when the page lies in none of them. The links
/// are unescaped; the names of section and page come from the page's link as it is. O(body + result).
std::optional<std::string> GenerateBreadcrumb(std::string_view notebooksBody, std::string_view pageLink);

}  // namespace quill::online
