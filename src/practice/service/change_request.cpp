#include "practice/service/change_request.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace quill::practice {
namespace {

using nlohmann::json;

struct ActionRow {
  std::string_view name;
  ChangeAction action;
  bool before;
};
constexpr ActionRow kActions[] = {{"replace", ChangeAction::Replace, false},
                                  {"append", ChangeAction::Append, false},
                                  {"prepend", ChangeAction::Append, true},
                                  {"insert", ChangeAction::Insert, false}};

std::string TextOf(const json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

Result<Change, ChangeProblem> ParseChange(const json& object) {
  if (!object.is_object()) return Failure{Refusal(kBadRequest, "A change must be an object.")};
  Change change{TextOf(object, "target"), {}, false, TextOf(object, "content")};
  const std::string action = TextOf(object, "action");
  const std::string position = TextOf(object, "position");
  const auto* const row = std::find_if(std::begin(kActions), std::end(kActions),
                                       [&](const ActionRow& entry) { return entry.name == action; });
  if (row == std::end(kActions)) {
    return Failure{Refusal(kBadRequest, fmt::format("There is no action \"{}\".", action))};
  }
  if (change.target.empty()) return Failure{Refusal(kBadRequest, "A change has no target.")};
  if (change.content.empty()) return Failure{Refusal(kBadRequest, "A change has no content.")};
  if (!position.empty() && position != "before" && position != "after") {
    return Failure{Refusal(kBadRequest, fmt::format("There is no position \"{}\".", position))};
  }
  change.action = row->action;
  change.before = row->before || position == "before";
  return change;
}

}  // namespace

ChangeProblem Refusal(std::string_view code, std::string message) {
  return {400, std::string(code), std::move(message)};
}

Result<std::vector<Change>, ChangeProblem> ParseChanges(std::string_view text) {
  const json array = json::parse(text, nullptr, false);
  if (!array.is_array() || array.empty()) {
    return Failure{Refusal(kBadRequest, "The request is not an array of changes.")};
  }
  std::vector<Change> changes;
  for (const json& object : array) {
    Result<Change, ChangeProblem> change = ParseChange(object);
    if (!change.ok()) return Failure{change.error()};
    changes.push_back(std::move(*change));
  }
  return changes;
}

}  // namespace quill::practice
