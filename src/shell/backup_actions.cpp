#include "shell/backup_actions.h"

#include "files/backup/backup_restore.h"
#include "shell/backup_job.h"

namespace quill::shell {
namespace {

void Say(CommandContext& context, std::string_view key) {
  context.services.ui.ShowMessage(context.services.strings.Text(key));
}

/// Tells the end of the work; a failure without a reason was the user's wish.
void SayEnd(CommandContext& context, const Status<>& status, std::string_view successKey,
            std::string_view stoppedKey, std::string_view problemKey) {
  if (status.ok()) return Say(context, successKey);
  if (status.error().empty()) return Say(context, stoppedKey);
  context.services.ui.ShowMessage(context.services.strings.Format(problemKey, {status.error()}));
}

}  // namespace

void RestoreBackup(CommandContext& context, const std::string& name, const std::string& day,
                   const BackupWork& work) {
  Services& services = context.services;
  if (services.desktop.OneNoteRunning()) return Say(context, "errBackupCloseOneNote");
  if (!services.ui.AskYesNo(services.strings.Format("askBackupRecovery", {day}))) return;
  if (work.onBegin) work.onBegin();
  const files::BackupPlaces places = BackupPlacesOf(context.globals.folders);
  SayEnd(context, files::RestoreBackup(places, *services.engines.processes, name, work.isCancelled),
         "WinBackupSuccess", "msgBackupRestoreStopped", "errBackupRestore");
}

void ClearBackups(CommandContext& context, const BackupWork& work) {
  Services& services = context.services;
  if (!services.ui.AskYesNo(services.strings.Text("askClearBackup"))) return;
  if (work.onBegin) work.onBegin();
  const files::BackupPlaces places = BackupPlacesOf(context.globals.folders);
  SayEnd(context, files::ClearBackups(places, *services.engines.processes, work.isCancelled),
         "ClearBackupSuccess", "msgBackupClearStopped", "errBackupClear");
}

}  // namespace quill::shell
