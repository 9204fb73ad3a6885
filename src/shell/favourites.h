#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace quill::shell {

struct Folders;

/// What favourites are of.
enum class FavoriteType { Sections = 3, Pages = 4 };

/// The file of the favourites of a kind.
const std::filesystem::path& FavouritesFile(const Folders& folders, FavoriteType type);

/// The id under which a link is kept: the page's, or the section's. "" when the link names none.
std::string_view FavouriteId(FavoriteType type, std::string_view link);

/// What a favourite is called: the page's title, for a page without one the section's name; the section's
/// name. "" when the link tells neither.
std::string FavouriteTitle(FavoriteType type, std::string_view link);

}  // namespace quill::shell
