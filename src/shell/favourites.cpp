#include "shell/favourites.h"

#include "online/client_link.h"
#include "shell/folders.h"

namespace quill::shell {

const std::filesystem::path& FavouritesFile(const Folders& folders, FavoriteType type) {
  return type == FavoriteType::Pages ? folders.FavPagesFile : folders.FavSectionsFile;
}

std::string_view FavouriteId(FavoriteType type, std::string_view link) {
  return type == FavoriteType::Pages ? online::PageIdOfLink(link) : online::SectionIdOfLink(link);
}

std::string FavouriteTitle(FavoriteType type, std::string_view link) {
  std::string title = type == FavoriteType::Pages ? online::PageTitleOfLink(link) : std::string();
  return title.empty() ? online::SectionNameOfLink(link) : title;
}

}  // namespace quill::shell
