#pragma once
#include <QIcon>
#include <string>
#include <vector>

#include "ui/kit/filtered_model.h"

namespace quill::ui {

/// Rows of one icon with a name and perhaps a note each; names and notes are searched in.
class NamedRows final : public FilteredModel {
  Q_OBJECT

 public:
  enum Role { NoteRole = Qt::UserRole };  ///< may be empty

  struct Row {
    QString name;
    QString note;
    bool operator==(const Row&) const = default;
  };

  explicit NamedRows(QIcon icon) : m_icon(std::move(icon)) {}

  void SetRows(std::vector<Row> rows);

  /// `Qt::DisplayRole`: the name in one line. `Qt::DecorationRole`: the icon. `Qt::AccessibleTextRole`: name
  /// and note.
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QIcon m_icon;
  std::vector<Row> m_rows;
};

}  // namespace quill::ui
