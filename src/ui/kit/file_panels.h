#pragma once
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "platform/user_interface.h"
#include "shell/string_table.h"

namespace quill::ui {

/// Where the next file panel begins: where the user last saved or opened something in this process, at first
/// in the home folder.
struct PanelMemory {
  QString folder;
};

/// Shows a save panel. `answered` is called once: with the chosen path, which ends in the panel's extension,
/// or with nothing. The extension is appended to a name without it ("a.txt" becomes "a.txt.csv"), and then,
/// when that file is there, the user is asked whether to replace it; the panel stays open for a NO. `memory`
/// has to outlive the panel. GUI thread.
void ShowSavePanel(const shell::StringTable& strings, PanelMemory& memory, const platform::SavePanel& panel,
                   std::function<void(std::optional<std::filesystem::path>)> answered);

/// Shows an open panel. `answered` is called once, with what was chosen; with nothing when it was cancelled.
/// Only what exists, is of the asked kind and has one of the extensions can be chosen.
void ShowOpenPanel(const shell::StringTable& strings, PanelMemory& memory, const platform::OpenPanel& panel,
                   std::function<void(std::vector<std::filesystem::path>)> answered);

}  // namespace quill::ui
