#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/key_combination.h"
#include "shell/command_table.h"

namespace quill::shell {

/// An action and its system-wide key.
struct HotKeyAssignment {
  const CommandRow* row;
  platform::KeyCombination keys;
};

/// The key that an action has unless the setting says otherwise; nothing for most.
std::optional<platform::KeyCombination> DefaultHotKey(const CommandRow& row);

/// The keys in use, in the order in which they are to be registered: C, D, T, L of the defaults first, then
/// the table's order.
///
/// The setting is entries "ACTION=COMBINATION" joined by ";", such as
/// "MenuItemUpperCaseClick=Control+Option+U;MenuItemInsertDateClick="; an empty combination switches the key
/// off. Entries that are not understood are passed over; of several for one action the last counts. A
/// combination belongs to one action: to the first with an entry for it, else to the one that has it by
/// default.
std::vector<HotKeyAssignment> AssignedHotKeys(std::string_view setting);

/// The setting with another key for one action, or none (nothing). Another action that had the key loses it.
/// Only what differs from the defaults is written, in the table's order.
std::string WithHotKey(std::string_view setting, const CommandRow& row,
                       const std::optional<platform::KeyCombination>& keys);

/// The action that has a key, or null.
const CommandRow* HotKeyOwner(std::string_view setting, const platform::KeyCombination& keys);

/// Whether a text has the form of the setting. Actions of other versions of the program are no fault.
bool AcceptsHotKeysSetting(std::string_view text);

}  // namespace quill::shell
