#include "practice/service/list_rows.h"

#include <algorithm>

#include "practice/service/graph_ids.h"
#include "practice/service/html_text.h"
#include "practice/service/service_client_links.h"

namespace quill::practice {
namespace {

using Json = nlohmann::ordered_json;

Json Links(const ServiceAddresses& addresses, const std::string& clientLink, const std::string& id) {
  const std::string web = addresses.base + "/view.aspx?resid=" + EscapeUrlPart(id);
  return {{"oneNoteClientUrl", {{"href", clientLink}}}, {"oneNoteWebUrl", {{"href", web}}}};
}

std::string SelfLink(const ServiceAddresses& addresses, std::string_view kind, const std::string& id) {
  return addresses.base + "/v1.0/users/me/onenote/" + std::string(kind) + "/" + EscapeUrlPart(id);
}

/// What something lies in, in short.
Json Parent(const ListRow& row, std::string_view kind, const std::string& name,
            const ServiceAddresses& addresses) {
  const std::string id = IdOfRow(row);
  return {{"id", id}, {"displayName", name}, {"self", SelfLink(addresses, kind, id)}};
}

Json NotebookEntry(const ServiceAddresses& addresses, const ListRow& row) {
  const LibraryNotebook& notebook = *row.notebook;
  const std::string id = IdOfRow(row);
  const std::string self = SelfLink(addresses, "notebooks", id);
  return {{"id", id},
          {"self", self},
          {"displayName", notebook.name},
          {"isDefault", notebook.isDefault},
          {"userRole", notebook.isShared ? "Contributor" : "Owner"},
          {"isShared", notebook.isShared},
          {"sectionsUrl", self + "/sections"},
          {"sectionGroupsUrl", self + "/sectionGroups"},
          {"links", Links(addresses, NotebookClientLink(addresses.documentHost, notebook), id)}};
}

Json SectionEntry(const ServiceAddresses& addresses, const ListRow& row) {
  const std::string id = IdOfRow(row);
  const std::string self = SelfLink(addresses, "sections", id);
  const bool isFirst = row.section == row.notebook->sections.data();
  return {
      {"id", id},
      {"self", self},
      {"displayName", row.section->name},
      {"isDefault", row.notebook->isDefault && isFirst},
      {"pagesUrl", self + "/pages"},
      {"links", Links(addresses, SectionClientLink(addresses.documentHost, *row.notebook, *row.section), id)},
      {"parentNotebook", Parent({row.notebook}, "notebooks", row.notebook->name, addresses)}};
}

Json PageEntry(const ServiceAddresses& addresses, const ListRow& row, bool hasLevels) {
  const std::string id = IdOfRow(row);
  const std::string self = SelfLink(addresses, "pages", id);
  Json entry = {
      {"id", id},
      {"self", self},
      {"title", row.page->title},
      {"contentUrl", self + "/content"},
      {"links",
       Links(addresses, PageClientLink(addresses.documentHost, *row.notebook, *row.section, *row.page), id)}};
  if (hasLevels) {
    entry["level"] = row.page->level;
    entry["order"] = row.order;
  }
  entry["parentSection"] = Parent({row.notebook, row.section}, "sections", row.section->name, addresses);
  return entry;
}

}  // namespace

std::vector<ListRow> NotebookRows(const std::vector<LibraryNotebook>& notebooks) {
  std::vector<ListRow> rows;
  for (const LibraryNotebook& notebook : notebooks) rows.push_back({&notebook});
  return rows;
}

std::vector<ListRow> SectionRows(const std::vector<LibraryNotebook>& notebooks) {
  std::vector<ListRow> rows;
  for (const LibraryNotebook& notebook : notebooks) {
    for (const LibrarySection& section : notebook.sections) rows.push_back({&notebook, &section});
  }
  return rows;
}

std::vector<ListRow> PageRows(const ListRow& section, const MovedPages& moved) {
  std::vector<ListRow> rows;
  for (const LibraryPage& page : section.section->pages)
    rows.push_back({section.notebook, section.section, &page});
  std::stable_sort(rows.begin(), rows.end(),
                   [](const ListRow& a, const ListRow& b) { return a.page->order < b.page->order; });
  const auto turns = moved.find(section.section->guid);
  if (turns != moved.end() && !rows.empty()) {
    const auto first = turns->second % static_cast<std::ptrdiff_t>(rows.size());
    std::rotate(rows.begin(), rows.begin() + first, rows.end());
  }
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].order = static_cast<int>(i);
  return rows;
}

std::vector<ListRow> PageRows(const std::vector<LibraryNotebook>& notebooks, const MovedPages& moved) {
  std::vector<ListRow> rows;
  for (const ListRow& section : SectionRows(notebooks)) {
    const std::vector<ListRow> pages = PageRows(section, moved);
    rows.insert(rows.end(), pages.begin(), pages.end());
  }
  return rows;
}

std::optional<std::string> FieldOfRow(const ListRow& row, std::string_view name) {
  if (name == "id") return IdOfRow(row);
  if (row.page != nullptr) return name == "title" ? std::optional(row.page->title) : std::nullopt;
  if (name != "name" && name != "displayName") return std::nullopt;
  return row.section != nullptr ? row.section->name : row.notebook->name;
}

std::string IdOfRow(const ListRow& row) {
  const std::string& account = row.notebook->accountId;
  if (row.page != nullptr) return GraphId(IdKind::Page, row.page->guid, account);
  if (row.section != nullptr) return GraphId(IdKind::Section, row.section->guid, account);
  return GraphId(IdKind::Notebook, row.notebook->guid, account);
}

Json EntryOf(const ServiceAddresses& addresses, const ListRow& row, bool hasLevels) {
  if (row.page != nullptr) return PageEntry(addresses, row, hasLevels);
  return row.section != nullptr ? SectionEntry(addresses, row) : NotebookEntry(addresses, row);
}

Json RecentEntryOf(const ServiceAddresses& addresses, const LibraryNotebook& notebook,
                   std::string_view lastAccessed) {
  return {{"displayName", notebook.name},
          {"lastAccessedTime", lastAccessed},
          {"sourceService", "OneDrive"},
          {"links",
           Links(addresses, NotebookClientLink(addresses.documentHost, notebook), IdOfRow({&notebook}))}};
}

}  // namespace quill::practice
