#pragma once
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "base/stored_date.h"

namespace quill::files {

/// Where backups are kept, and what they are made of.
struct BackupPlaces {
  std::filesystem::path supportFolder;  ///< the program's own
  std::filesystem::path backupFolder;   ///< "OneAppBackup" in it: one folder for each day, with a copy in it
  std::filesystem::path dataFolder;     ///< OneNote's own data, a folder named "OneNote"
};

/// The backup folder without links on the way to it, made when it is not there. Fails for every folder in
/// which nothing may be deleted: one whose path is relative or goes up, one of another name than
/// "OneAppBackup", a link, and one that does not lie directly in the support folder.
Result<std::filesystem::path> OwnBackupFolder(const BackupPlaces& places);

/// The backup of one day.
struct Backup {
  std::string name;  ///< of its folder: "yyyyMMdd"
  std::chrono::year_month_day day;
  bool isWhole = false;  ///< false when the copy was cut off or failed, or when it is half removed
};

/// The folders in the backup folder that are named by a day, in the order of the file system. Links are left
/// out, whatever their name is. An empty list when there is no backup folder; a failure when it cannot be
/// read.
Result<std::vector<Backup>> ListBackups(const BackupPlaces& places);

/// What a folder with OneNote's data holds.
struct BackupContents {
  std::uintmax_t bytes = 0;
  std::size_t notebooks = 0;  ///< folders with sections in them, where OneNote keeps its notebooks
  std::size_t sections = 0;   ///< all versions of a section count once
};

/// Walks through the backup of this name. Ends early, with what has been seen, when cancelled. Links are not
/// followed, what cannot be read is left out. Any thread.
BackupContents MeasureBackup(const BackupPlaces& places, std::string_view name,
                             const std::function<bool()>& isCancelled);

// A file "yyyyMMdd.incomplete" beside the folder of a day says that the copy in it is not whole. It is made
// before anything is copied or removed there, so that it is found whenever the program ends in between.

/// Marks the folder of this name. False when the mark could not be made: leave the folder alone then.
bool MarkIncomplete(const std::filesystem::path& backupFolder, std::string_view name);

/// Takes the mark away.
void UnmarkIncomplete(const std::filesystem::path& backupFolder, std::string_view name);

/// Takes away the marks whose folders are gone.
void RemoveStrayMarks(const std::filesystem::path& backupFolder);

/// The command that removes a folder with everything in it, or copies one into another one.
std::vector<std::string> RemoveCommand(const std::filesystem::path& folder);
std::vector<std::string> CopyCommand(const std::filesystem::path& source, const std::filesystem::path& into);

/// A copy takes as long as the disks need; this only ends one that hangs for ever.
inline constexpr std::chrono::hours kLongestCopy{12};

}  // namespace quill::files
