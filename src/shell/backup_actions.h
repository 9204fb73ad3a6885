#pragma once
#include <functional>
#include <string>

#include "shell/command_table.h"

namespace quill::shell {

/// `MWinBackup`: the backups that there are, and what can be done with them.
struct BackupsRequest {};

/// Work on the backups that a window has asked for. The functions are called on the command thread.
struct BackupWork {
  std::function<void()> onBegin;      ///< the user has agreed, the work begins; may be empty
  std::function<bool()> isCancelled;  ///< asked now and then; may be empty
};

/// Copies the backup of this name over OneNote's data, after a question that names its day in words. Refused
/// while OneNote is open. Tells the user how it ended.
void RestoreBackup(CommandContext& context, const std::string& name, const std::string& day,
                   const BackupWork& work);

/// Deletes all backups, after a question. Tells the user how it ended.
void ClearBackups(CommandContext& context, const BackupWork& work);

}  // namespace quill::shell
