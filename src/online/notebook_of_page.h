#pragma once
#include <optional>
#include <string>
#include <string_view>

namespace quill::online {

/// A notebook in the service's list.
struct NotebookOfPage {
  std::string link;  ///< its client link, unescaped
  std::string displayName;
  std::string id;
};

/// The notebook that a page lies in: the first in the service's list whose link, both unescaped, is the
/// page's or is continued by it behind a slash. Case counts; a notebook without a link holds nothing.
/// O(body).
std::optional<NotebookOfPage> FindNotebookOfPage(std::string_view notebooksBody, std::string_view pageLink);

}  // namespace quill::online
