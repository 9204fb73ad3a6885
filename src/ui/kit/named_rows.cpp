#include "ui/kit/named_rows.h"

#include "ui/kit/qt_text.h"

namespace quill::ui {

void NamedRows::SetRows(std::vector<Row> rows) {
  std::vector<std::string> texts;
  texts.reserve(rows.size());
  for (const Row& row : rows) texts.push_back(FromQt(row.name + u' ' + row.note));
  Exchange(texts, [&] { m_rows = std::move(rows); });
}

QVariant NamedRows::data(const QModelIndex& index, int role) const {
  const int place = RowAt(index);
  if (place < 0) return {};
  const Row& row = m_rows[static_cast<std::size_t>(place)];
  switch (role) {
    case Qt::DisplayRole:
      return row.name.simplified();
    case Qt::DecorationRole:
      return m_icon;
    case Qt::AccessibleTextRole:
      return row.note.isEmpty() ? row.name : row.name + QStringLiteral(", ") + row.note;
    case NoteRole:
      return row.note;
    default:
      return {};
  }
}

}  // namespace quill::ui
