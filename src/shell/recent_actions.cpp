#include "shell/recent_actions.h"

#include <algorithm>

#include "content/unicode_text.h"

namespace quill::shell {
namespace {

constexpr std::size_t kLongestName = 100;

bool IsName(std::string_view text) {
  const auto isAllowed = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == ':' || c == '-';
  };
  return !text.empty() && text.size() <= kLongestName && std::all_of(text.begin(), text.end(), isAllowed);
}

/// Appends the names of `setting` that are not in `names` yet, until the list is full.
void AppendNames(std::vector<std::string>& names, std::string_view setting) {
  while (!setting.empty() && names.size() < kMostRecentActions) {
    const std::size_t end = std::min(setting.find(','), setting.size());
    const std::string_view name = content::TrimWhite(setting.substr(0, end));
    if (IsName(name) && std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
    setting.remove_prefix(std::min(end + 1, setting.size()));
  }
}

}  // namespace

std::string RecentName(std::string_view action, std::optional<std::int64_t> argument) {
  std::string name(action);
  if (argument) name.append(":").append(std::to_string(*argument));
  return name;
}

std::vector<std::string> ParseRecentActions(std::string_view setting) {
  std::vector<std::string> names;
  AppendNames(names, setting);
  return names;
}

std::string WithRecent(std::string_view setting, std::string_view name) {
  std::vector<std::string> names;
  if (IsName(name)) names.emplace_back(name);
  AppendNames(names, setting);
  std::string result;
  for (const std::string& one : names) {
    if (!result.empty()) result += ',';
    result += one;
  }
  return result;
}

}  // namespace quill::shell
