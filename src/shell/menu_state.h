#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/backend.h"
#include "shell/command_table.h"

namespace quill::shell {

/// How many favourites of a kind are shown in the menu; their window shows all.
inline constexpr std::size_t kMostFavouriteItems = 500;

/// One of the user's favourite pages or sections in the menu.
struct FavouriteItem {
  std::string title;      ///< may be empty, or hold anything
  std::int64_t argument;  ///< what its action is given
  bool operator==(const FavouriteItem&) const = default;
};

/// What the menu shows besides the table: what is there, what is on. What has not been looked at yet counts
/// as there, for an entry that is grey without reason cannot be tried.
struct MenuState {
  bool oneNoteRunning = true;
  bool signedIn = true;
  bool wordInstalled = true;
  bool startWithMonday = false;
  std::vector<FavouriteItem> favouritePages;
  std::vector<FavouriteItem> favouriteSections;
};

/// Looks at the desktop, the settings and the files of the favourites. Command thread.
MenuState LookAtMenuState(const platform::Backend& backend, const Globals& globals);

/// The string-table key of the reason why an action cannot run now; empty when it can. What is selected in
/// OneNote cannot be known without a copy, so a missing selection is told when the action runs.
std::string_view WhyNotNow(const CommandRow& row, const MenuState& state);

}  // namespace quill::shell
