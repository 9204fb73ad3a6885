#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "files/backup/backup_folder.h"
#include "platform/process_runner.h"

namespace quill::files {

/// Copies the backup of this name over OneNote's data: files of the same name are replaced, others stay.
/// Waits for the end. Fails for a name that is no whole backup, when the copy fails (some files are back
/// then, and the backup is as it was), and, with an empty text, when it was cancelled. Any thread.
Status<> RestoreBackup(const BackupPlaces& places, platform::ProcessRunner& runner, std::string_view name,
                       std::function<bool()> isCancelled);

/// Removes every folder in the backup folder that is named by a day, one after the other, and waits for that.
/// Others stay, and so does a folder that cannot be marked first. The failure names the first one that is
/// still there; it is empty when the work was cancelled. Any thread.
Status<> ClearBackups(const BackupPlaces& places, platform::ProcessRunner& runner,
                      const std::function<bool()>& isCancelled);

}  // namespace quill::files
