#include "online/change_list.h"

#include <algorithm>

#include "online/service_list.h"

namespace quill::online {

std::string EditedSource(std::string_view html, SourceRange range, const std::vector<SourceEdit>& edits) {
  std::string source;
  std::size_t at = range.begin;
  auto edit = std::ranges::lower_bound(edits, range.begin, {},
                                       [](const SourceEdit& each) { return each.where.begin; });
  for (; edit != edits.end() && edit->where.end <= range.end; ++edit) {
    source += html.substr(at, edit->where.begin - at);
    source += edit->text;
    at = edit->where.end;
  }
  return source += html.substr(at, range.end - at);
}

void ChangeList::Replace(std::string_view id, std::string_view content) {
  m_changes.push_back({{"target", id}, {"action", "replace"}, {"content", content}});
}

std::string ChangeList::Json() const {
  return m_changes.empty() ? std::string()
                           : m_changes.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

Result<std::vector<std::string>> ReplacedIds(std::string_view json) {
  const nlohmann::json changes = nlohmann::json::parse(json, nullptr, false);
  if (!changes.is_array() || changes.empty()) return Failure{std::string("there are no changes")};
  std::vector<std::string> ids;
  for (const nlohmann::json& change : changes) {
    ids.push_back(TextAt(change, {"target"}));
    if (ids.back().empty() || TextAt(change, {"action"}) != "replace")
      return Failure{std::string("a change is no replacement")};
  }
  return ids;
}

}  // namespace quill::online
