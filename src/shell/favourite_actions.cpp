#include "shell/favourite_actions.h"

#include "files/favourites/favourite_list.h"
#include "files/name_number.h"
#include "online/client_link.h"
#include "shell/command_table.h"
#include "shell/library_requests.h"
#include "shell/onenote_main.h"
#include "shell/selection_bridge.h"

namespace quill::shell {
namespace {

/// What the adding of a favourite says, by its kind.
struct AddingTexts {
  FavoriteType type;
  std::string_view failureKey;
  std::string_view successKey;
  std::string_view noLink;
};

constexpr AddingTexts kPageTexts{FavoriteType::Pages, "msgFavoritePageFailure", "msgFavoritePageSuccess",
                                 "Get links of current page error!!"};
constexpr AddingTexts kSectionTexts{FavoriteType::Sections, "msgFavoriteSectionFailure",
                                    "msgFavoriteSectionSuccess", "Get links of current section error!!"};

void Say(CommandContext& context, std::string_view text) {
  context.services.ui.ShowMessage(text);
}

/// Tells that the favourites could not be written, or that a damaged file was set aside for it.
bool SaySaved(CommandContext& context, const std::filesystem::path& file, bool wasDamaged,
              const Status<>& saved) {
  const StringTable& strings = context.services.strings;
  if (!saved.ok()) {
    Say(context, strings.Format("errSaveFavourites", {saved.error()}));
  } else if (wasDamaged) {
    Say(context, strings.Format("msgFavouritesDamaged", {files::MConfig::DamagedCopy(file).string()}));
  }
  return saved.ok();
}

void AddCurrent(CommandContext& context, const AddingTexts& texts) {
  const StringTable& strings = context.services.strings;
  // The user has their own clipboard back before anything is told.
  const std::string copied = SelectionBridge(context.services, context.globals).CopyPageLinkText();
  if (copied.empty()) return Say(context, strings.Text(texts.failureKey));
  const std::string_view link = files::LinkOfCopiedLines(copied);
  const std::string_view id = FavouriteId(texts.type, link);
  // What is no link of a page cannot be opened, and would have the place of any other such text.
  if (!online::IsClientLink(link) || id.empty()) return Say(context, texts.noLink);
  const std::filesystem::path& file = FavouritesFile(context.globals.folders, texts.type);
  files::FavouriteList list(file);
  const bool wasDamaged = !list.Problem().empty();
  if (SaySaved(context, file, wasDamaged, list.Add(id, link))) Say(context, strings.Text(texts.successKey));
}

void OpenItem(CommandContext& context, FavoriteType type) {
  const files::FavouriteList list(FavouritesFile(context.globals.folders, type));
  for (const files::Favourite& one : list.All()) {
    if (files::NumberOfName(one.id) == context.argument) return OpenFavourite(context, type, one.id);
  }
}

}  // namespace

void FavoriteCurrentPage(CommandContext& context, const CommandRow&) {
  AddCurrent(context, kPageTexts);
}

void FavoriteCurrentSection(CommandContext& context, const CommandRow&) {
  AddCurrent(context, kSectionTexts);
}

void FavoritePageItem(CommandContext& context, const CommandRow&) {
  OpenItem(context, FavoriteType::Pages);
}

void FavoriteSectionItem(CommandContext& context, const CommandRow&) {
  OpenItem(context, FavoriteType::Sections);
}

void ManagerFavoritePages(platform::UserInterface& ui) {
  ui.ShowWindow(FavouritesRequest{FavoriteType::Pages});
}

void ManagerFavoriteSections(platform::UserInterface& ui) {
  ui.ShowWindow(FavouritesRequest{FavoriteType::Sections});
}

void OpenFavourite(CommandContext& context, FavoriteType type, std::string_view id) {
  const files::FavouriteList list(FavouritesFile(context.globals.folders, type));
  NSOneNoteMain(context.services, context.globals).OpenLocation(list.LinkOf(id));
}

void RemoveFavourite(CommandContext& context, FavoriteType type, std::string_view id) {
  const std::filesystem::path& file = FavouritesFile(context.globals.folders, type);
  SaySaved(context, file, false, files::FavouriteList(file).Remove(id));
}

}  // namespace quill::shell
