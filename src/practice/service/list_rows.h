#pragma once
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/service/notebook_library.h"

namespace quill::practice {

/// Where the service's own links lead.
struct ServiceAddresses {
  std::string base;          ///< of this server
  std::string documentHost;  ///< of client links
};

/// What one entry of a list stands for: a notebook, a section of it, or a page of that.
struct ListRow {
  const LibraryNotebook* notebook = nullptr;
  const LibrarySection* section = nullptr;
  const LibraryPage* page = nullptr;
  int order = 0;  ///< the page's place in its section
};

/// How many of a section's pages, from the first on, have gone to the end; by the section's GUID.
using MovedPages = std::map<std::string, int>;

std::vector<ListRow> NotebookRows(const std::vector<LibraryNotebook>& notebooks);
std::vector<ListRow> SectionRows(const std::vector<LibraryNotebook>& notebooks);
/// In the order of the sections, and within each in that of its pages.
std::vector<ListRow> PageRows(const ListRow& section, const MovedPages& moved);
std::vector<ListRow> PageRows(const std::vector<LibraryNotebook>& notebooks, const MovedPages& moved);

/// The value of a text field that lists can be filtered and ordered by; nothing when there is none of that
/// name.
std::optional<std::string> FieldOfRow(const ListRow& row, std::string_view name);

/// The id under which the service names what the row stands for.
std::string IdOfRow(const ListRow& row);

/// The row as the service writes it; a page's level and place only with `hasLevels`.
nlohmann::ordered_json EntryOf(const ServiceAddresses& addresses, const ListRow& row, bool hasLevels);

/// A notebook as the list of those that were open last writes it: without an id.
nlohmann::ordered_json RecentEntryOf(const ServiceAddresses& addresses, const LibraryNotebook& notebook,
                                     std::string_view lastAccessed);

}  // namespace quill::practice
