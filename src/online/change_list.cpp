#include "online/change_list.h"

#include <algorithm>
#include <optional>

#include "online/block_text.h"
#include "online/service_list.h"

namespace quill::online {
namespace {

/// Where an "&" stands that is by itself so far and that what comes behind the text could make a reference
/// of.
std::optional<std::size_t> OpenReference(std::string_view text) {
  const auto isName = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  };
  while (!text.empty() && isName(text.back())) text.remove_suffix(1);
  if (text.ends_with("&#")) text.remove_suffix(1);
  if (!text.ends_with('&')) return std::nullopt;
  return text.size() - 1;
}

/// Keeps an "&" by itself what it is: "R&D" with "amp;" for the "D" is "R&amp;amp;".
std::string WithoutNewReferences(std::string_view source, const std::vector<std::size_t>& ampersands) {
  std::string kept;
  std::size_t done = 0;
  for (const std::size_t at : ampersands) {
    if (ReadReference(source.substr(at)).length == 1) continue;
    kept.append(source.substr(done, at + 1 - done)).append("amp;");
    done = at + 1;
  }
  return kept.append(source.substr(done));
}

}  // namespace

std::string EditedSource(std::string_view html, SourceRange range, const std::vector<SourceEdit>& edits) {
  std::string source;
  std::vector<std::size_t> ampersands;
  std::size_t at = range.begin;
  auto edit = std::ranges::lower_bound(edits, range.begin, {},
                                       [](const SourceEdit& each) { return each.where.begin; });
  for (; edit != edits.end() && edit->where.end <= range.end; ++edit) {
    const std::string_view kept = html.substr(at, edit->where.begin - at);
    if (const auto open = OpenReference(kept)) ampersands.push_back(source.size() + *open);
    source += kept;
    source += edit->text;
    at = edit->where.end;
  }
  source += html.substr(at, range.end - at);
  return ampersands.empty() ? source : WithoutNewReferences(source, ampersands);
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
