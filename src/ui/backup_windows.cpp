#include "ui/backup_windows.h"

#include "shell/backup_actions.h"
#include "shell/backup_job.h"
#include "shell/open_notebook.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/tool_window.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/backup/win_backup.h"
#include "ui/windows/open_notebook/win_open_notebook.h"

namespace quill::ui {
namespace {

/// Runs work on the backups as a command of its own, so that it is refused while another one runs.
void RunTask(const BackupWindowParts& parts, const BackupTask& task,
             std::function<void(shell::CommandContext&, const shell::BackupWork&)> work) {
  parts.application.RunJob(
      std::string(parts.strings.Text("titleBackup")),
      [task, work = std::move(work)](shell::CommandContext& context) {
        work(context, {[task] { OnGui(task.onBegin); }, [task] { return task.isCancelled->load(); }});
      },
      [parts, task](const shell::Outcome& outcome) {
        parts.tellRefusal(outcome);
        OnGui(task.onEnd);
      });
}

MWinBackup* NewBackupWindow(const BackupWindowParts& parts) {
  BackupHandlers handlers;
  handlers.places = shell::BackupPlacesOf(parts.folders);
  handlers.today = [&clock = parts.clock] { return LocalDay(clock.Now()); };
  handlers.restore = [parts](const std::string& name, const std::string& day, const BackupTask& task) {
    RunTask(parts, task, [name, day](shell::CommandContext& context, const shell::BackupWork& work) {
      shell::RestoreBackup(context, name, day, work);
    });
  };
  handlers.clear = [parts](const BackupTask& task) { RunTask(parts, task, shell::ClearBackups); };
  return new MWinBackup(parts.strings, std::move(handlers));
}

}  // namespace

void AddBackupWindows(WindowFactory& windows, const BackupWindowParts& parts) {
  windows.AddWindow<shell::BackupsRequest>([parts](const auto&) -> QWidget* {
    return ShowOne<MWinBackup>([&] { return NewBackupWindow(parts); });
  });
  windows.AddPlainDialog<shell::OpenNotebookRequest, MWinOpenNotebookByLink>(parts.strings);
}

}  // namespace quill::ui
