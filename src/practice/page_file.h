#pragma once
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill::practice {

/// One page of the practice notebook. `title` is plain text, `body` the HTML of what stands below it.
struct Page {
  std::string id;  ///< "{8-4-4-4-12}" in upper-case hexadecimal; stays when the page is renamed
  std::string title;
  std::string body;
  int order = 0;  ///< place within its section

  bool operator==(const Page&) const = default;
};

/// The text of a page's file: an HTML document with the page's id and order in its head.
std::string PageFileText(const Page& page);

/// Reads a page's file. Fails when there is no body. A file without an id (placed there by hand) gets an
/// empty one; without a title it gets an empty title.
Result<Page> ParsePageFile(std::string_view text);

/// A fresh random page id.
std::string NewPageId();

/// True when `name` can be a file or folder name inside the notebook: not empty, no path parts, not
/// hidden, no control characters, at most 120 bytes.
bool IsSafeName(std::string_view name);

/// The file name, without extension, for a page of this title: what cannot stand in a name becomes "-".
std::string FileNameForTitle(std::string_view title);

}  // namespace quill::practice
