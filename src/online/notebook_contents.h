#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// The contents block of all notebooks with links to them. `body` is the service's list of notebooks, whose
/// order is kept. "" for an empty body; a body without a list makes a block without entries. O(body).
std::string GenerateTOCNotebooksHtml(std::string_view body, std::string_view title);

}  // namespace quill::online
