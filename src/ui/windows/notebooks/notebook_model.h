#pragma once
#include <QIcon>
#include <array>
#include <vector>

#include "online/notebook_list.h"
#include "shell/string_table.h"
#include "ui/kit/filtered_model.h"

namespace quill::ui {

/// The notebooks of an account and the recent ones that are gone.
class NotebookModel final : public FilteredModel {
  Q_OBJECT

 public:
  enum Role { NoteRole = Qt::UserRole };  ///< what is special about the notebook, in words; may be empty

  explicit NotebookModel(const shell::StringTable& strings);

  void SetRows(std::vector<online::NotebookRow> rows);
  const online::NotebookRow& Row(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

  /// `Qt::DisplayRole`: the name. `Qt::DecorationRole`: the icon. `Qt::AccessibleTextRole`: name and note.
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString Note(online::NotebookKind kind) const;

  const shell::StringTable& m_strings;
  std::vector<online::NotebookRow> m_rows;
  std::array<QIcon, 3> m_icons;  ///< by kind
};

}  // namespace quill::ui
