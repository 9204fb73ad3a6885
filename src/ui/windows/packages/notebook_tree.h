#pragma once
#include <QTreeWidget>
#include <cstddef>
#include <vector>

#include "files/store/notebook_list.h"
#include "shell/string_table.h"

namespace quill::ui {

/// The check mark of all rows at once.
enum class CheckMode { None, All, Invert };

/// Notebooks with check boxes, and what is known of each by now: size, sections, last change. The space bar
/// flips the current row. GUI thread.
class NotebookTree final : public QTreeWidget {
  Q_OBJECT
 public:
  NotebookTree(const shell::StringTable& strings, const std::vector<files::MAFolder>& notebooks);

  /// Shows what was found out about a row.
  void SetFacts(std::size_t row, const files::NotebookFacts& facts);

  bool IsChecked(std::size_t row) const;
  void CheckAllItems(CheckMode mode);

 signals:
  void ChecksChanged();

 private:
  void AddRow(const files::MAFolder& notebook);
  void FitColumns();

  const shell::StringTable& m_strings;
};

}  // namespace quill::ui
