#pragma once
#include <QMenu>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "shell/command_table.h"
#include "shell/string_table.h"

namespace quill::ui {

/// Called on the GUI thread when an entry was chosen.
using OnAction = std::function<void(const shell::CommandRow& row, std::optional<std::int64_t> argument)>;

/// Builds the menu of all actions from the command table: one submenu a group, in the table's order; the
/// page title tags are a submenu of their own. Each entry's `objectName` is its action's name.
std::unique_ptr<QMenu> BuildActionMenu(const shell::StringTable& strings, OnAction onAction);

}  // namespace quill::ui
