#include "online/notebook_list.h"

#include <unordered_set>

#include "content/unicode_text.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

NotebookRow RowOf(const nlohmann::json& notebook, NotebookKind kind) {
  return {TextAt(notebook, {"displayName"}), TextAt(notebook, {"links", "oneNoteClientUrl", "href"}),
          TextAt(notebook, {"links", "oneNoteWebUrl", "href"}), kind};
}

/// A text that is the same for all links that mean the same notebook. Upper case first: it joins letters with
/// two lower-case forms.
std::string KeyOf(std::string_view link) {
  const std::string unescaped = content::PercentUnescape(link);
  return content::ToLower(content::ToUpper(unescaped.empty() ? link : unescaped));
}

}  // namespace

std::string_view NotebookIcon(NotebookKind kind) {
  switch (kind) {
    case NotebookKind::Default:
      return "notebookDefault";
    case NotebookKind::Deleted:
      return "notebookDeleted";
    case NotebookKind::Ordinary:
      break;
  }
  return "notebook";
}

std::vector<NotebookRow> Json2NotebookListView(std::string_view notebooksBody, std::string_view recentBody) {
  std::vector<NotebookRow> rows;
  std::unordered_set<std::string> present;
  const auto notebooks = ValueOf(notebooksBody).value_or(nlohmann::json::array());
  for (const nlohmann::json& notebook : notebooks) {
    const bool isDefault = IsTrueAt(notebook, "isDefault");
    rows.push_back(RowOf(notebook, isDefault ? NotebookKind::Default : NotebookKind::Ordinary));
    present.insert(KeyOf(rows.back().clientLink));
  }
  const auto recent = ValueOf(recentBody).value_or(nlohmann::json::array());
  for (const nlohmann::json& notebook : recent) {
    NotebookRow row = RowOf(notebook, NotebookKind::Deleted);
    if (!present.contains(KeyOf(row.clientLink))) rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace quill::online
