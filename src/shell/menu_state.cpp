#include "shell/menu_state.h"

#include "files/favourites/favourite_list.h"
#include "files/name_number.h"
#include "shell/favourites.h"
#include "shell/online_session.h"

namespace quill::shell {
namespace {

std::vector<FavouriteItem> FavouriteItems(const Folders& folders, FavoriteType type) {
  std::vector<FavouriteItem> items;
  for (const files::Favourite& one : files::FavouriteList(FavouritesFile(folders, type)).All()) {
    if (items.size() == kMostFavouriteItems) break;
    items.push_back({FavouriteTitle(type, one.link), files::NumberOfName(one.id)});
  }
  return items;
}

}  // namespace

MenuState LookAtMenuState(const platform::Backend& backend, const Globals& globals) {
  MenuState state;
  state.oneNoteRunning = backend.desktop->OneNoteRunning();
  state.wordInstalled = backend.desktop->ApplicationInstalled("/Applications/Microsoft Word.app");
  const online::Account& account = AccountOf(globals, backend.name == platform::kPracticeBackend);
  state.signedIn = !account.OnlineOneNoteAccessToken.empty() || !account.OnlineOneNoteRefreshToken.empty();
  state.startWithMonday = globals.settings.CalendarStartWithMonday;
  state.favouritePages = FavouriteItems(globals.folders, FavoriteType::Pages);
  state.favouriteSections = FavouriteItems(globals.folders, FavoriteType::Sections);
  return state;
}

std::string_view WhyNotNow(const CommandRow& row, const MenuState& state) {
  struct Missing {
    Needs need;
    bool there;
    std::string_view key;
  };
  const Missing needs[] = {{Needs::SignedIn, state.signedIn, "strNeedsSignIn"},
                           {Needs::OneNote, state.oneNoteRunning, "strNeedsOneNote"},
                           {Needs::Word, state.wordInstalled, "strNeedsWord"}};
  for (const Missing& one : needs) {
    if (Has(row.needs, one.need) && !one.there) return one.key;
  }
  return {};
}

}  // namespace quill::shell
