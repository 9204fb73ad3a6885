#include "files/backup/daily_backup.h"

#include "files/folder_listing.h"
#include "files/process_problem.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

}  // namespace

/// One day's run.
struct DailyBackup::Run {
  fs::path folder;  ///< of the backups
  Day today;
  std::function<void()> onBegun;
  BackupOutcome outcome = {};
  int holds = 0;  ///< programs that run, and whoever may still start one

  std::string Today() const { return StoredDateText(today); }
  void Note(std::string_view problem) {
    if (!outcome.problem.empty()) outcome.problem += "; ";
    outcome.problem += problem;
  }
};

bool DailyBackup::IsDue(StoredDate last, Day today) const {
  std::error_code error;
  return last != today && !m_isBeginning && fs::is_directory(m_parts.places.dataFolder, error);
}

void DailyBackup::Begin(Day today, std::function<void()> onBegun) {
  if (!IsDue(std::nullopt, today)) return;
  const Result<fs::path> folder = OwnBackupFolder(m_parts.places);
  if (!folder.ok()) {
    if (m_parts.onEnd) m_parts.onEnd({false, folder.error()});
    return;
  }
  m_isBeginning = true;
  Prune(std::make_shared<Run>(Run{*folder, today, std::move(onBegun)}));
}

void DailyBackup::Prune(const std::shared_ptr<Run>& run) {
  ++run->holds;
  RemoveStrayMarks(run->folder);
  const Day yesterday = std::chrono::sys_days(run->today) - std::chrono::days(1);
  const auto entries = ListFolder(run->folder);
  if (!entries.ok()) run->Note(entries.error());
  bool isWaiting = false;
  for (const FolderEntry& entry : entries.ok() ? *entries : std::vector<FolderEntry>()) {
    if (!entry.isFolder || ParseStoredDate(entry.name) == yesterday) continue;
    isWaiting = isWaiting || entry.name == run->Today();
    Remove(run, entry.name);
  }
  if (!isWaiting) Copy(run);
  Release(run);
}

void DailyBackup::Remove(const std::shared_ptr<Run>& run, const std::string& name) {
  const bool isToday = name == run->Today();
  if (ParseStoredDate(name) && !MarkIncomplete(run->folder, name)) {
    // Half removed it would pass for a whole backup.
    run->Note(name + ": cannot be marked, so it is not removed");
    return isToday ? Begun(*run) : void();
  }
  Start(run, RemoveCommand(run->folder / name), [this, run, isToday](const platform::ProcessResult& result) {
    if (!result.ok()) run->Note(ProcessProblem("rm", result));
    // This day's own mark is the copy's, too.
    isToday ? Copy(run) : RemoveStrayMarks(run->folder);
  });
}

void DailyBackup::Copy(const std::shared_ptr<Run>& run) {
  const fs::path target = run->folder / run->Today();
  std::error_code error;
  if (IsThere(target)) {
    run->Note(target.string() + ": could not be removed");
    // The folder first: an empty one is no backup, and a mark without its folder may be taken away by
    // anybody.
  } else if (!fs::create_directory(target, error) || !MarkIncomplete(run->folder, run->Today())) {
    run->Note(target.string() + ": " + (error ? error.message() : "could not be marked"));
    fs::remove(target, error);
    RemoveStrayMarks(run->folder);
  } else {
    Start(run, CopyCommand(m_parts.places.dataFolder, target), [run](const platform::ProcessResult& result) {
      run->outcome.isWhole = result.ok();
      if (!result.ok()) return run->Note(ProcessProblem("cp", result));
      UnmarkIncomplete(run->folder, run->Today());
    });
  }
  Begun(*run);
}

void DailyBackup::Begun(Run& run) {
  m_isBeginning = false;
  if (run.onBegun) run.onBegun();
}

void DailyBackup::Start(const std::shared_ptr<Run>& run, std::vector<std::string> command,
                        std::function<void(const platform::ProcessResult&)> ended) {
  platform::ProcessRequest request;
  request.command = std::move(command);
  request.deadline = kLongestCopy;
  ++run->holds;
  m_parts.processes.Start(std::move(request),
                          [this, run, ended = std::move(ended)](const platform::ProcessResult& result) {
                            ended(result);
                            Release(run);
                          });
}

void DailyBackup::Release(const std::shared_ptr<Run>& run) {
  if (--run->holds == 0 && m_parts.onEnd) m_parts.onEnd(run->outcome);
}

}  // namespace quill::files
