#include "ui/windows/notebooks/notebook_model.h"

#include "ui/kit/qt_text.h"
#include "ui/windows/notebooks/notebook_icon.h"

namespace quill::ui {
namespace {

using online::NotebookKind;
using online::NotebookRow;

}  // namespace

NotebookModel::NotebookModel(const shell::StringTable& strings) : m_strings(strings) {
  for (const NotebookKind kind : {NotebookKind::Default, NotebookKind::Ordinary, NotebookKind::Deleted}) {
    m_icons[static_cast<std::size_t>(kind)] = NotebookIconOf(online::NotebookIcon(kind));
  }
}

void NotebookModel::SetRows(std::vector<NotebookRow> rows) {
  std::vector<std::string> names;
  names.reserve(rows.size());
  for (const NotebookRow& row : rows) names.push_back(row.name);
  Exchange(names, [&] { m_rows = std::move(rows); });
}

QString NotebookModel::Note(NotebookKind kind) const {
  switch (kind) {
    case NotebookKind::Default:
      return ToQt(m_strings.Text("strNotebookDefault"));
    case NotebookKind::Deleted:
      return ToQt(m_strings.Text("strNotebookDeleted"));
    case NotebookKind::Ordinary:
      break;
  }
  return {};
}

QVariant NotebookModel::data(const QModelIndex& index, int role) const {
  const int place = RowAt(index);
  if (place < 0) return {};
  const NotebookRow& row = Row(place);
  const QString note = Note(row.kind);
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(row.name).simplified();
    case Qt::DecorationRole:
      return m_icons[static_cast<std::size_t>(row.kind)];
    case Qt::AccessibleTextRole:
      return note.isEmpty() ? ToQt(row.name) : ToQt(row.name) + QStringLiteral(", ") + note;
    case NoteRole:
      return note;
    default:
      return {};
  }
}

}  // namespace quill::ui
