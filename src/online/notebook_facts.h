#pragma once
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quill::online {

/// One thing that the service says about a notebook.
struct NotebookFact {
  std::string name;   ///< the names on the way to it, joined by dots: "links.oneNoteWebUrl.href"
  std::string value;  ///< as text; "true" or "false" for a yes or no

  bool operator==(const NotebookFact&) const = default;
};

/// Everything that an entry of a list says, in the entry's order. Members of arrays have their number as
/// name; `null` and empty objects say nothing, and what is nested deeper than any name of the service is left
/// out. O(entry).
std::vector<NotebookFact> NotebookFacts(const nlohmann::json& entry);

/// What the service said about the notebook in this row of `Json2NotebookListView` (of the same two bodies);
/// nothing when there is no such row. O(bodies).
std::vector<NotebookFact> NotebookFactsOfRow(std::string_view notebooksBody, std::string_view recentBody,
                                             std::size_t row);

}  // namespace quill::online
