#pragma once
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "online/pane_headings.h"
#include "shell/string_table.h"
#include "ui/kit/filtered_model.h"

namespace quill::ui {

/// The headings of a page, one of them marked as the one that was opened last.
class HeadingModel final : public FilteredModel {
  Q_OBJECT

 public:
  enum Role {
    LevelRole = Qt::UserRole,  ///< 1 to 6
    OpenedRole,                ///< whether it was opened last
  };

  explicit HeadingModel(const shell::StringTable& strings) : m_strings(strings) {}

  /// Exchanges the headings. The mark stays where its link is still there and goes otherwise.
  void SetHeadings(const std::vector<online::PaneHeading>& headings);

  /// The link of a heading; empty when it has none.
  const std::string& Link(int row) const { return m_rows[static_cast<std::size_t>(row)].link; }

  void MarkOpened(int row);
  /// The marked heading; −1 when there is none.
  int Opened() const { return m_opened; }

  /// `Qt::DisplayRole`: the text in one line. `Qt::AccessibleTextRole`: all that the row shows, in words.
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  struct Row {
    QString text;
    int level;
    std::string link;
  };
  QString Spoken(int row) const;

  const shell::StringTable& m_strings;
  std::vector<Row> m_rows;
  int m_opened = -1;
};

}  // namespace quill::ui
