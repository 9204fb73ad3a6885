#include "ui/windows/navigation/heading_model.h"

#include <algorithm>

#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

/// More than any window shows. A heading may be a whole pasted page, which takes seconds to measure.
constexpr qsizetype kLongestLine = 500;

QString LineOf(const std::string& text) {
  QString line = ToQt(text).simplified();
  if (line.size() > kLongestLine) line = line.left(kLongestLine) + u'…';
  return line;
}

}  // namespace

void HeadingModel::SetHeadings(const std::vector<online::PaneHeading>& headings) {
  std::vector<std::string> texts;
  texts.reserve(headings.size());
  for (const online::PaneHeading& heading : headings) texts.push_back(heading.text);
  const std::string opened = m_opened >= 0 ? Link(m_opened) : std::string();
  Exchange(texts, [&] {
    m_rows.clear();
    m_opened = -1;
    for (const online::PaneHeading& heading : headings) {
      if (!opened.empty() && heading.link == opened) m_opened = static_cast<int>(m_rows.size());
      m_rows.push_back({LineOf(heading.text), std::clamp(heading.level, 1, 6), heading.link});
    }
  });
}

void HeadingModel::MarkOpened(int row) {
  const QModelIndex before = IndexOf(m_opened), now = IndexOf(row);
  m_opened = row;
  for (const QModelIndex& changed : {before, now}) {
    if (changed.isValid()) emit dataChanged(changed, changed, {OpenedRole, Qt::AccessibleTextRole});
  }
}

QString HeadingModel::Spoken(int row) const {
  const Row& heading = m_rows[static_cast<std::size_t>(row)];
  const std::string text =
      heading.text.isEmpty() ? std::string(m_strings.Text("strNavigationNoText")) : FromQt(heading.text);
  const std::string spoken =
      m_strings.Format("strNavigationLevel", {text, FromQt(QString::number(heading.level))});
  return ToQt(row == m_opened ? m_strings.Format("strNavigationOpened", {spoken}) : spoken);
}

QVariant HeadingModel::data(const QModelIndex& index, int role) const {
  const int row = RowAt(index);
  if (row < 0) return {};
  const Row& heading = m_rows[static_cast<std::size_t>(row)];
  switch (role) {
    case Qt::DisplayRole:
      return heading.text.isEmpty() ? ToQt(m_strings.Text("strNavigationNoText")) : heading.text;
    case Qt::AccessibleTextRole:
      return Spoken(row);
    case LevelRole:
      return heading.level;
    case OpenedRole:
      return row == m_opened;
    default:
      return {};
  }
}

}  // namespace quill::ui
