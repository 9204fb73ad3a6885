#pragma once
#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "files/backup/backup_folder.h"
#include "ui/kit/latest_job.h"
#include "ui/kit/modal_window.h"

class QLabel;
class QStackedWidget;

namespace quill::ui {

class BackupList;

/// Work that the window has others do. The functions are called on the GUI thread, also when the window is
/// gone.
struct BackupTask {
  std::function<void()> onBegin;  ///< the user has agreed, and it begins
  std::function<void()> onEnd;    ///< it is over, or was refused; always called
  std::shared_ptr<std::atomic<bool>> isCancelled = std::make_shared<std::atomic<bool>>(false);
};

/// What the window looks at, and what its buttons do.
struct BackupHandlers {
  files::BackupPlaces places;
  std::function<std::chrono::year_month_day()> today;
  std::function<void(const std::string& name, const std::string& day, const BackupTask& task)> restore;
  std::function<void(const BackupTask& task)> clear;
};

/// The backups: restores one, shows them all, deletes them. Its two buttons are named after the first two
/// whole backups in the order of the file system, and both restore the first. Closing it ends the work that
/// it began.
class MWinBackup final : public AnswerWindow<std::monostate> {
  Q_OBJECT
 public:
  MWinBackup(const shell::StringTable& strings, BackupHandlers handlers);

  void reject() override;

 private:
  Result<std::monostate, Problem> Read() override { return std::monostate{}; }
  QWidget* NewRestorePart();
  QWidget* NewListPart(const shell::StringTable& strings);
  QWidget* NewBusyPart();
  void LoadBackups();
  void ShowBackups(const Result<std::vector<files::Backup>>& backups);
  void NameButtons(const std::vector<files::Backup>& backups);
  void Measure(int row);
  void buttonRecoveryClick();
  void buttonClearBackupsClick();
  BackupTask NewTask(std::string_view busyKey);
  void Begin(const QString& what);
  void End();
  void UpdateButtons();

  BackupHandlers m_handlers;
  std::array<QPushButton*, 2> m_restoreButtons{};  // ButtonRestore1, ButtonRestore2
  QLabel* m_restores;
  QStackedWidget* m_stack;
  BackupList* m_list;
  QLabel* m_nothing;
  QWidget* m_busy;
  QLabel* m_busyText;
  QPushButton* m_cancel;
  QPushButton* m_clear;
  QString m_firstDay;                                ///< in words
  std::shared_ptr<std::atomic<bool>> m_isCancelled;  ///< of the task; null without one
  LatestJob m_listing;
  LatestJob m_measuring;
};

}  // namespace quill::ui
