#pragma once
#include <QTreeWidget>
#include <chrono>
#include <vector>

#include "files/backup/backup_folder.h"
#include "shell/string_table.h"

namespace quill::ui {

/// The backups that there are, the newest first: day, age, size, what is in them, and whether they are whole.
/// Sizes come later, from a worker. GUI thread.
class BackupList final : public QTreeWidget {
  Q_OBJECT
 public:
  explicit BackupList(const shell::StringTable& strings);

  /// Shows these in place of the present ones.
  void SetBackups(std::vector<files::Backup> backups, std::chrono::year_month_day today);

  /// In the order in which they are shown.
  const std::vector<files::Backup>& backups() const { return m_backups; }

  void SetContents(int row, const files::BackupContents& contents);

 private:
  int RowHeight() const;
  void FitColumns();
  QString Age(std::chrono::year_month_day day, std::chrono::year_month_day today) const;

  const shell::StringTable& m_strings;
  std::vector<files::Backup> m_backups;
};

}  // namespace quill::ui
