#pragma once
#include <QKeySequence>
#include <QMenu>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "shell/command_table.h"
#include "shell/menu_state.h"
#include "shell/string_table.h"

namespace quill::ui {

/// Called on the GUI thread when an entry was chosen.
using OnAction = std::function<void(const shell::CommandRow& row, std::optional<std::int64_t> argument)>;

/// The menu of all actions, made from the command table: one submenu a group in the table's order, then the
/// actions of the top level; page title tags and favourites are submenus of their own. Each entry's
/// `objectName` is its action's name. GUI thread.
class ActionMenu {
 public:
  ActionMenu(const shell::StringTable& strings, OnAction onAction);

  QMenu& menu() { return *m_menu; }

  /// Builds everything anew: the language has changed.
  void Retranslate();

  /// Shows what the program knows about the desktop: check mark, favourites, greyed entries with the reason
  /// as their tool tip.
  void Update(const shell::MenuState& state);

  /// The hot keys that entries show; an action that is not in the map shows none.
  void ShowHotKeys(std::map<const shell::CommandRow*, QKeySequence> keys);

 private:
  void Build();
  QMenu& GroupMenu(shell::CommandGroup group);
  void AddRow(QMenu& menu, const shell::CommandRow& row);
  void AddTags(QMenu& menu, const shell::CommandRow& row);
  void AddFavourites(QMenu& menu, const shell::CommandRow& row);
  void FillFavourites(const shell::CommandRow& row, const std::vector<shell::FavouriteItem>& items);
  QAction* AddEntry(QMenu& menu, const QString& title, const shell::CommandRow& row,
                    std::optional<std::int64_t> argument);
  QString Title(std::string_view key) const;

  const shell::StringTable& m_strings;
  OnAction m_onAction;
  std::unique_ptr<QMenu> m_menu;
  std::map<shell::CommandGroup, QMenu*> m_groups;
  std::multimap<const shell::CommandRow*, QAction*> m_entries;
  std::map<const shell::CommandRow*, QMenu*> m_favourites;  ///< by the row of their items
  std::map<const shell::CommandRow*, std::vector<shell::FavouriteItem>> m_listed;  ///< what is in them
  std::map<const shell::CommandRow*, QKeySequence> m_hotKeys;
  shell::MenuState m_state;
};

/// How a favourite is shown: in one line, "(untitled)" without a title.
QString FavouriteTitleOf(const shell::StringTable& strings, const shell::FavouriteItem& item);

/// Gives every entry of a menu and its submenus a letter to be chosen by, each once in its menu: the first
/// letter of a word where that is free, else any letter. Entries whose titles have no free letter get none.
void AssignMnemonics(QMenu& menu);

}  // namespace quill::ui
