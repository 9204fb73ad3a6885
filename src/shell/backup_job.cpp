#include "shell/backup_job.h"

#include "files/store/onenote_store.h"

namespace quill::shell {

files::BackupPlaces BackupPlacesOf(const Folders& folders) {
  return {folders.SupportFolder, folders.BackupFolder, folders.roots.userLibrary / files::kOneNoteDataFolder};
}

Status<> RememberBackup(Globals& globals, std::chrono::year_month_day today) {
  globals.settings.OneAppBackup_Last = today;
  return SaveSettingRows(globals, {"OneAppBackup_Last"});
}

BackupJob::BackupJob(Globals& globals, platform::BackgroundProcesses& processes, platform::Desktop& oneNote,
                     Log& log)
    : m_globals(globals),
      m_oneNote(oneNote),
      m_log(log),
      m_backup({BackupPlacesOf(globals.folders), processes, [this](const files::BackupOutcome& outcome) {
                  // A folder that is refused is refused once a second.
                  if (!outcome.problem.empty() && outcome.problem != m_lastProblem)
                    m_log.Write("backup: " + outcome.problem);
                  m_lastProblem = outcome.problem;
                }}) {}

void BackupJob::AddTo(Housekeeping& housekeeping) {
  housekeeping.AddJob(
      HousekeepingSlot::Backup,
      [this](Globals&, Housekeeping::Moment now) { AutoBackupOneNote(LocalDay(now)); },
      [this](const Globals& globals, Housekeeping::Moment now) {
        return m_backup.IsDue(globals.settings.OneAppBackup_Last, LocalDay(now));
      });
}

void BackupJob::AutoBackupOneNote(std::chrono::year_month_day today) {
  if (m_oneNote.OneNoteRunning()) return;
  m_backup.Begin(today, [this, today] {
    const Status<> saved = RememberBackup(m_globals, today);
    if (!saved.ok()) m_log.Write("backup: " + saved.error());
  });
}

}  // namespace quill::shell
