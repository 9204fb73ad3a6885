#include "shell/hot_key_settings.h"

#include <algorithm>
#include <set>

namespace quill::shell {
namespace {

using platform::KeyCombination;
using platform::KeyCombinationText;

/// One key for each row of the command table.
using Keys = std::vector<std::optional<KeyCombination>>;

constexpr std::string_view kFirstLetters = "CDTL";

struct Entry {
  std::string_view action;
  std::optional<KeyCombination> keys;  ///< nothing: switched off
};

bool IsAction(std::string_view text) {
  constexpr std::string_view kCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_:";
  return !text.empty() && text.find_first_not_of(kCharacters) == std::string_view::npos;
}

std::optional<Entry> ParseEntry(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || !IsAction(text.substr(0, equals))) return std::nullopt;
  const std::string_view keys = text.substr(equals + 1);
  Entry entry{text.substr(0, equals), platform::ParseKeyCombination(keys)};
  return entry.keys || keys.empty() ? std::optional(entry) : std::nullopt;
}

/// Calls `take` with each entry, or with nothing for one that is not understood.
template <class Take>
void ForEachEntry(std::string_view setting, Take take) {
  if (setting.empty()) return;
  while (true) {
    const std::size_t end = setting.find(';');
    take(ParseEntry(setting.substr(0, end)));
    if (end == std::string_view::npos) return;
    setting.remove_prefix(end + 1);
  }
}

std::size_t IndexOf(const CommandRow& row) {
  return static_cast<std::size_t>(&row - CommandTable().data());
}

/// The row with exactly this name: a settings file is not typed by heart.
const CommandRow* RowOf(std::string_view action) {
  if (action.ends_with(':')) action.remove_suffix(1);
  const std::span<const CommandRow> table = CommandTable();
  const auto row =
      std::find_if(table.begin(), table.end(), [&](const auto& one) { return one.action == action; });
  return row == table.end() ? nullptr : &*row;
}

/// What the setting says about each row: nothing where it says nothing.
std::vector<std::optional<Entry>> Overrides(std::string_view setting) {
  std::vector<std::optional<Entry>> overrides(CommandTable().size());
  ForEachEntry(setting, [&](const std::optional<Entry>& entry) {
    const CommandRow* row = entry ? RowOf(entry->action) : nullptr;
    if (row != nullptr) overrides[IndexOf(*row)] = entry;
  });
  return overrides;
}

Keys EffectiveKeys(std::string_view setting) {
  const std::span<const CommandRow> table = CommandTable();
  const std::vector<std::optional<Entry>> overrides = Overrides(setting);
  Keys keys(table.size());
  std::set<std::string> taken;
  const auto assign = [&](std::size_t index, const std::optional<KeyCombination>& wanted) {
    if (wanted && taken.insert(KeyCombinationText(*wanted)).second) keys[index] = wanted;
  };
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (overrides[i]) assign(i, overrides[i]->keys);
  }
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (!overrides[i]) assign(i, DefaultHotKey(table[i]));
  }
  return keys;
}

/// The place of a row's default letter among those that are registered first.
std::size_t Rank(const HotKeyAssignment& assignment) {
  return std::min(kFirstLetters.find(assignment.row->hotKey), kFirstLetters.size());
}

}  // namespace

std::optional<KeyCombination> DefaultHotKey(const CommandRow& row) {
  if (row.hotKey == 0) return std::nullopt;
  return KeyCombination{true, true, true, false, std::string(1, row.hotKey)};
}

std::vector<HotKeyAssignment> AssignedHotKeys(std::string_view setting) {
  const Keys keys = EffectiveKeys(setting);
  std::vector<HotKeyAssignment> assigned;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (keys[i]) assigned.push_back({&CommandTable()[i], *keys[i]});
  }
  std::stable_sort(assigned.begin(), assigned.end(),
                   [](const auto& a, const auto& b) { return Rank(a) < Rank(b); });
  return assigned;
}

std::string WithHotKey(std::string_view setting, const CommandRow& row,
                       const std::optional<KeyCombination>& keys) {
  Keys all = EffectiveKeys(setting);
  for (std::optional<KeyCombination>& other : all) {
    if (other && other == keys) other.reset();
  }
  all[IndexOf(row)] = keys;
  std::string text;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const CommandRow& one = CommandTable()[i];
    if (all[i] == DefaultHotKey(one)) continue;
    if (!text.empty()) text += ';';
    text.append(one.action).append("=");
    if (all[i]) text.append(KeyCombinationText(*all[i]));
  }
  return text;
}

const CommandRow* HotKeyOwner(std::string_view setting, const KeyCombination& keys) {
  const Keys all = EffectiveKeys(setting);
  const auto owner = std::find(all.begin(), all.end(), std::optional(keys));
  return owner == all.end() ? nullptr : &CommandTable()[static_cast<std::size_t>(owner - all.begin())];
}

bool AcceptsHotKeysSetting(std::string_view text) {
  bool understood = true;
  ForEachEntry(text, [&](const std::optional<Entry>& entry) { understood &= entry.has_value(); });
  return understood;
}

}  // namespace quill::shell
