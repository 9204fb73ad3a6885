#pragma once
#include <QAbstractListModel>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/action_search.h"
#include "shell/command_table.h"
#include "shell/string_table.h"

namespace quill::ui {

/// One thing to choose in the palette.
struct PaletteEntry {
  const shell::CommandRow* row = nullptr;
  std::optional<std::int64_t> argument;  ///< for a page title tag: its index
  QString title, group, shortcut;
  QString problem;  ///< why it cannot run now; empty when it can
};

/// Why actions cannot run now. An action that is not in it can.
using PaletteProblems = std::map<const shell::CommandRow*, QString>;

/// The actions that what was typed has found, best first.
class PaletteModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role { kRanges = Qt::UserRole, kGroup, kShortcut, kProblem };

  PaletteModel(const shell::StringTable& strings, std::vector<PaletteEntry> entries);

  /// Exchanges the entries, as after a change of the language, and shows all.
  void SetEntries(std::vector<PaletteEntry> entries);

  /// The setting RecentActions, for the order from the next `Filter` on.
  void SetRecent(std::string_view setting);

  /// Shows what the query finds.
  void Filter(const QString& query);

  void SetProblems(const PaletteProblems& problems);

  /// The entry in this row of the list, which must be there.
  const PaletteEntry& At(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;

  /// `Qt::DisplayRole`: the title. `Qt::AccessibleTextRole`: all that the row shows, as a sentence part.
  /// `kRanges`: the matched characters, a `std::vector<shell::TextRange>`.
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString Spoken(const PaletteEntry& entry) const;

  const shell::StringTable& m_strings;
  std::vector<PaletteEntry> m_entries;
  shell::ActionSearch m_search{{}};
  std::vector<std::size_t> m_recent;
  std::vector<shell::SearchHit> m_hits;
};

}  // namespace quill::ui

Q_DECLARE_METATYPE(std::vector<quill::shell::TextRange>)
