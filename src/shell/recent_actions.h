#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quill::shell {

/// How many of the last used actions are remembered.
inline constexpr std::size_t kMostRecentActions = 20;

/// The name under which an action is remembered: its own, and ":" with the argument when it was chosen with
/// one
/// ("MenuItemPageTitleTagClick:3").
std::string RecentName(std::string_view action, std::optional<std::int64_t> argument);

/// The names in the setting, newest first, each once, at most `kMostRecentActions`. What is not a name
/// (letters, digits, "_", ":" and "-", at most 100) is passed over: the setting may have been edited by hand.
/// O(setting).
std::vector<std::string> ParseRecentActions(std::string_view setting);

/// The setting after an action was used: its name moves to the front. What was garbage in the setting is
/// gone.
std::string WithRecent(std::string_view setting, std::string_view name);

}  // namespace quill::shell
