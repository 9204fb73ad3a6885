#pragma once
#include <string_view>

#include "platform/user_interface.h"
#include "shell/favourites.h"

namespace quill::shell {

struct CommandContext;
struct CommandRow;

// Favourites: bookmarks to pages and sections of OneNote. Command thread, but for the windows.

/// Each asks OneNote for the link to the current page and keeps it as a favourite; says what came of it.
void FavoriteCurrentPage(CommandContext& context, const CommandRow& row);
void FavoriteCurrentSection(CommandContext& context, const CommandRow& row);

/// Each opens the favourite whose id has the number that the action was given (`files::NumberOfName`).
/// Nothing happens when there is none, or none any more.
void FavoritePageItem(CommandContext& context, const CommandRow& row);
void FavoriteSectionItem(CommandContext& context, const CommandRow& row);

/// Each shows the window of the favourites. Any thread.
void ManagerFavoritePages(platform::UserInterface& ui);
void ManagerFavoriteSections(platform::UserInterface& ui);

/// Opens a favourite in OneNote. Nothing happens when there is none, or none any more.
void OpenFavourite(CommandContext& context, FavoriteType type, std::string_view id);

/// Takes a favourite away; a failure is told.
void RemoveFavourite(CommandContext& context, FavoriteType type, std::string_view id);

}  // namespace quill::shell
