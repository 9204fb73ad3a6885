#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::online {

/// A row of the navigation pane.
struct PaneHeading {
  int level = 0;     ///< 1 to 6
  std::string text;  ///< with a no-break space for every "&" of the page's HTML
  std::string link;  ///< to the heading's paragraph

  bool operator==(const PaneHeading&) const = default;
};

/// The headings of a page that have an "id", in document order. A failure says what is not well-formed.
/// `pageLink` is the page's client link in any form. O(page + result).
Result<std::vector<PaneHeading>> ListTOCHeadingsHtml(std::string_view pageHtml, std::string_view pageLink);

}  // namespace quill::online
