#pragma once
#include <chrono>

#include "files/backup/daily_backup.h"
#include "platform/background_processes.h"
#include "platform/desktop.h"
#include "shell/globals.h"
#include "shell/housekeeping.h"
#include "shell/log.h"

namespace quill::shell {

/// Where this program keeps the backups of OneNote's data.
files::BackupPlaces BackupPlacesOf(const Folders& folders);

/// Remembers this day as the one of the last backup, in memory and in the settings file.
Status<> RememberBackup(Globals& globals, std::chrono::year_month_day today);

/// The backup that is made once a day, while OneNote is closed. Command thread.
class BackupJob {
 public:
  /// `oneNote` is the desktop on which the user's own OneNote may be open, whatever the commands work in.
  BackupJob(Globals& globals, platform::BackgroundProcesses& processes, platform::Desktop& oneNote, Log& log);

  void AddTo(Housekeeping& housekeeping);

 private:
  void AutoBackupOneNote(std::chrono::year_month_day today);

  Globals& m_globals;
  platform::Desktop& m_oneNote;
  Log& m_log;
  std::string m_lastProblem;
  files::DailyBackup m_backup;
};

}  // namespace quill::shell
