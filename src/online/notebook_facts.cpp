#include "online/notebook_facts.h"

#include <algorithm>
#include <utility>

#include "online/notebook_list.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

constexpr std::size_t kLongestName = 256;

struct Pending {
  std::string name;
  const nlohmann::json* value;
};

std::string TextOf(const nlohmann::json& value) {
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// Whether a row was made of this entry.
bool IsRowOf(const NotebookRow& row, const nlohmann::json& entry) {
  return row.name == TextAt(entry, {"displayName"}) &&
         row.clientLink == TextAt(entry, {"links", "oneNoteClientUrl", "href"}) &&
         row.webLink == TextAt(entry, {"links", "oneNoteWebUrl", "href"});
}

}  // namespace

std::vector<NotebookFact> NotebookFacts(const nlohmann::json& entry) {
  std::vector<NotebookFact> facts;
  std::vector<Pending> pending{{"", &entry}};  // the next one last
  while (!pending.empty()) {
    const Pending next = std::move(pending.back());
    pending.pop_back();
    if (next.value->is_structured()) {
      if (next.name.size() > kLongestName) continue;
      const auto first = static_cast<std::ptrdiff_t>(pending.size());
      for (const auto& member : next.value->items()) {
        const std::string name = next.name.empty() ? member.key() : next.name + '.' + member.key();
        pending.push_back({name, &member.value()});
      }
      std::reverse(pending.begin() + first, pending.end());
    } else if (!next.value->is_null()) {
      facts.push_back({next.name, TextOf(*next.value)});
    }
  }
  return facts;
}

std::vector<NotebookFact> NotebookFactsOfRow(std::string_view notebooksBody, std::string_view recentBody,
                                             std::size_t row) {
  const auto notebooks = ValueOf(notebooksBody).value_or(nlohmann::json::array());
  if (row < notebooks.size()) return NotebookFacts(notebooks[row]);
  const std::vector<NotebookRow> rows = Json2NotebookListView(notebooksBody, recentBody);
  if (row >= rows.size()) return {};
  // Two recent ones may look the same in the list; they are in it in the same order.
  auto before = std::count(rows.begin() + static_cast<std::ptrdiff_t>(notebooks.size()),
                           rows.begin() + static_cast<std::ptrdiff_t>(row), rows[row]);
  const auto recent = ValueOf(recentBody).value_or(nlohmann::json::array());
  for (const nlohmann::json& entry : recent) {
    if (IsRowOf(rows[row], entry) && before-- == 0) return NotebookFacts(entry);
  }
  return {};
}

}  // namespace quill::online
