#pragma once
#include <string>
#include <string_view>

namespace quill::files {

/// The two fields of a variable link.
struct LinkFields {
  std::string text;  ///< what the page shows, as HTML
  std::string link;  ///< the variable path

  bool operator==(const LinkFields&) const = default;
};

/// The fields for a selection: text and address of its first link, or just its text. An address loses
/// "qvar://" or all of "file:///", its entities and its percent escapes. Only addresses in double quotes are
/// seen. O(html).
LinkFields LoadValue(std::string_view linkHtml);

/// The page that is pasted for a link. Both go in as they stand: the text may hold tags and entities, and a
/// path with an apostrophe ends there.
std::string VariableLinkHtml(const LinkFields& fields);

}  // namespace quill::files
