#include "ui/palette/palette_model.h"

#include <algorithm>

#include "shell/action_synonyms.h"
#include "shell/recent_actions.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {

PaletteModel::PaletteModel(const shell::StringTable& strings, std::vector<PaletteEntry> entries)
    : m_strings(strings) {
  SetEntries(std::move(entries));
}

void PaletteModel::SetEntries(std::vector<PaletteEntry> entries) {
  m_entries = std::move(entries);
  std::vector<shell::SearchEntry> searched;
  searched.reserve(m_entries.size());
  for (const PaletteEntry& entry : m_entries) {
    searched.push_back(
        {FromQt(entry.title), shell::Synonyms(m_strings, *entry.row, entry.argument), FromQt(entry.group)});
  }
  m_search = shell::ActionSearch(searched);
  m_recent.clear();
  Filter({});
}

void PaletteModel::SetRecent(std::string_view setting) {
  m_recent.clear();
  for (const std::string& name : shell::ParseRecentActions(setting)) {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const PaletteEntry& entry) {
      return shell::RecentName(entry.row->action, entry.argument) == name;
    });
    if (found != m_entries.end()) m_recent.push_back(static_cast<std::size_t>(found - m_entries.begin()));
  }
}

void PaletteModel::Filter(const QString& query) {
  std::vector<bool> unavailable;
  unavailable.reserve(m_entries.size());
  for (const PaletteEntry& entry : m_entries) unavailable.push_back(!entry.problem.isEmpty());
  beginResetModel();
  m_hits = m_search.Find(FromQt(query), m_recent, unavailable);
  endResetModel();
}

void PaletteModel::SetProblems(const PaletteProblems& problems) {
  for (PaletteEntry& entry : m_entries) {
    const auto problem = problems.find(entry.row);
    entry.problem = problem == problems.end() ? QString() : problem->second;
  }
  if (!m_hits.empty()) emit dataChanged(index(0), index(rowCount() - 1));
}

const PaletteEntry& PaletteModel::At(const QModelIndex& index) const {
  return m_entries[m_hits[static_cast<std::size_t>(index.row())].entry];
}

int PaletteModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_hits.size());
}

QString PaletteModel::Spoken(const PaletteEntry& entry) const {
  if (!entry.problem.isEmpty()) {
    return ToQt(m_strings.Format("strPaletteUnavailable", {FromQt(entry.title), FromQt(entry.problem)}));
  }
  QStringList parts{entry.title, entry.group, entry.shortcut};
  parts.removeAll(QString());
  return parts.join(QStringLiteral(", "));
}

QVariant PaletteModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const PaletteEntry& entry = At(index);
  switch (role) {
    case Qt::DisplayRole:
      return entry.title;
    case Qt::AccessibleTextRole:
      return Spoken(entry);
    case kRanges:
      return QVariant::fromValue(m_hits[static_cast<std::size_t>(index.row())].title);
    case kGroup:
      return entry.group;
    case kShortcut:
      return entry.shortcut;
    case kProblem:
      return entry.problem;
    default:
      return {};
  }
}

}  // namespace quill::ui
