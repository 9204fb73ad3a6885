#pragma once
#include <string>
#include <string_view>

namespace quill::online {

/// The contents block of a section's pages with links to them, a step to the right for each level.
///
/// `body` is the service's list of pages. They are listed by their "order", which counts from 0. A page whose
/// order is missing, taken by an earlier one, or beyond the length of the list follows behind, so that none
/// is lost. "" for an empty body; a body without a list makes a block without entries. O(body + result); no
/// page is indented by more than a hundred steps.
std::string GenerateTOCSectionPagesHtml(std::string_view body, std::string_view title);

}  // namespace quill::online
