#include "files/backup/backup_restore.h"

#include <fmt/format.h>

#include <algorithm>

#include "files/folder_listing.h"
#include "files/process_problem.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

/// Runs a command to its end. The failure is empty when it was cancelled.
Status<> RunToEnd(platform::ProcessRunner& runner, std::vector<std::string> command,
                  std::function<bool()> isCancelled) {
  platform::ProcessRequest request;
  request.command = std::move(command);
  request.deadline = kLongestCopy;
  request.isCancelled = std::move(isCancelled);
  const platform::ProcessResult result = runner.Run(request);
  if (result.ok()) return Done();
  if (result.end == platform::ProcessEnd::Cancelled) return Failure{std::string()};
  return Failure{ProcessProblem(request.command.front(), result)};
}

}  // namespace

Status<> RestoreBackup(const BackupPlaces& places, platform::ProcessRunner& runner, std::string_view name,
                       std::function<bool()> isCancelled) {
  const auto backups = ListBackups(places);
  if (!backups.ok()) return Failure{backups.error()};
  const auto backup = std::ranges::find(*backups, name, &Backup::name);
  if (backup == backups->end()) return Failure{fmt::format("{}: there is no such backup", name)};
  if (!backup->isWhole) return Failure{fmt::format("{}: this backup is incomplete", name)};
  const fs::path target = places.dataFolder.parent_path();
  std::error_code error;
  fs::create_directories(target, error);
  if (error) return Failure{fmt::format("{}: {}", target.string(), error.message())};
  const fs::path source = places.backupFolder / name / places.dataFolder.filename();
  return RunToEnd(runner, CopyCommand(source, target), std::move(isCancelled));
}

Status<> ClearBackups(const BackupPlaces& places, platform::ProcessRunner& runner,
                      const std::function<bool()>& isCancelled) {
  const Result<fs::path> folder = OwnBackupFolder(places);
  if (!folder.ok()) return Failure{folder.error()};
  const auto entries = ListFolder(*folder);
  if (!entries.ok()) return Failure{entries.error()};
  Status<> cleared = Done();
  for (const FolderEntry& entry : *entries) {
    if (!entry.isFolder || !ParseStoredDate(entry.name)) continue;
    Status<> removed = Failure{(*folder / entry.name).string() + ": could not be marked"};
    // Half removed it would pass for a whole backup.
    if (MarkIncomplete(*folder, entry.name))
      removed = RunToEnd(runner, RemoveCommand(*folder / entry.name), isCancelled);
    if (cleared.ok()) cleared = removed;
    if (!removed.ok() && removed.error().empty()) break;
  }
  RemoveStrayMarks(*folder);
  return cleared;
}

}  // namespace quill::files
