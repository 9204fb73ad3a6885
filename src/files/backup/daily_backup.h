#pragma once
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "base/stored_date.h"
#include "files/backup/backup_folder.h"
#include "platform/background_processes.h"

namespace quill::files {

/// How a day's backup ended.
struct BackupOutcome {
  bool isWhole = false;  ///< the copy is complete
  std::string problem;   ///< why not, or what could not be removed; for the log
};

/// The copy of OneNote's data that is made once a day. Yesterday's is kept, everything older goes before the
/// new one is begun. Command thread.
class DailyBackup {
 public:
  struct Parts {
    BackupPlaces places;
    platform::BackgroundProcesses& processes;
    std::function<void(const BackupOutcome& outcome)>
        onEnd;  ///< told when all programs of a day have ended; may be empty
  };
  using Day = std::chrono::year_month_day;

  explicit DailyBackup(Parts parts) : m_parts(std::move(parts)) {}
  DailyBackup(const DailyBackup&) = delete;
  DailyBackup& operator=(const DailyBackup&) = delete;

  /// Whether there is something to copy, no copy was begun on this day, and none is being begun. Cheap.
  bool IsDue(StoredDate last, Day today) const;

  /// Begins the copy of this day. Folders in the backup folder that are not yesterday's are removed, whatever
  /// their name is; only the removal of this day's own is waited for. `onBegun` is called when the copy has
  /// been started or could not be: the day is done then, either way. Does nothing, and calls nobody, while
  /// OneNote's data folder is missing or an earlier call is not that far; when the backup folder is not the
  /// program's own, only `onEnd` is told.
  void Begin(Day today, std::function<void()> onBegun);

 private:
  struct Run;
  void Prune(const std::shared_ptr<Run>& run);
  void Remove(const std::shared_ptr<Run>& run, const std::string& name);
  void Copy(const std::shared_ptr<Run>& run);
  /// This day is done with, whether a copy was started or not.
  void Begun(Run& run);
  void Start(const std::shared_ptr<Run>& run, std::vector<std::string> command,
             std::function<void(const platform::ProcessResult&)> ended);
  /// Tells the end when nothing runs any more.
  void Release(const std::shared_ptr<Run>& run);

  Parts m_parts;
  bool m_isBeginning = false;
};

}  // namespace quill::files
