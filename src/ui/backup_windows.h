#pragma once
#include <functional>

#include "platform/clock.h"
#include "shell/application.h"

namespace quill::ui {

class WindowFactory;

/// What the windows of the backups and of the client links stand on. All of it outlives the factory.
struct BackupWindowParts {
  const shell::StringTable& strings;
  const platform::Clock& clock;
  shell::Application& application;
  const shell::Folders& folders;
  std::function<void(const shell::Outcome& outcome)> tellRefusal;  ///< any thread
};

/// Adds `MWinBackup` and `MWinOpenNotebookByLink`. GUI thread.
void AddBackupWindows(WindowFactory& windows, const BackupWindowParts& parts);

}  // namespace quill::ui
