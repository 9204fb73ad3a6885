#include "ui/file_windows_library.h"

#include <QPointer>
#include <any>

#include "shell/favourite_actions.h"
#include "shell/folders.h"
#include "shell/library_requests.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/favourites/win_favorite_pages.h"
#include "ui/windows/templates/win_templates.h"

namespace quill::ui {
namespace {

using shell::FavoriteType;

QWidget* NewFavourites(const shell::StringTable& strings, const shell::Folders& folders,
                       const LibraryHooks& hooks, FavoriteType type) {
  const bool arePages = type == FavoriteType::Pages;
  const std::string opening(strings.Text(arePages ? "menuFavoritePageItem" : "menuFavoriteSectionItem"));
  const std::string removing(
      strings.Text(arePages ? "menuManagerFavoritePages" : "menuManagerFavoriteSections"));
  FavouriteHooks own;
  own.open = [hooks, opening, type](const std::string& id) {
    hooks.run(
        opening, [type, id](shell::CommandContext& context) { shell::OpenFavourite(context, type, id); },
        [] {});
  };
  own.remove = [hooks, removing, type](const std::string& id, std::function<void()> done) {
    hooks.run(
        removing, [type, id](shell::CommandContext& context) { shell::RemoveFavourite(context, type, id); },
        std::move(done));
  };
  return new MWinFavoritePages(strings, type, shell::FavouritesFile(folders, type), std::move(own));
}

/// The window that was shown for this request before, or a new one for its first time. Null when it was
/// closed meanwhile.
MWinTemplates* TemplatesWindow(const shell::StringTable& strings, const shell::TemplatesRequest& request) {
  using Kept = QPointer<MWinTemplates>;
  if (const auto* kept = std::any_cast<Kept>(request.window.get())) {
    return *kept && (*kept)->isVisible() ? kept->data() : nullptr;
  }
  auto* window = new MWinTemplates(strings, request);
  *request.window = Kept(window);
  return window;
}

}  // namespace

void AddLibraryWindows(WindowFactory& windows, const shell::StringTable& strings,
                       const shell::Folders& folders, const LibraryHooks& hooks) {
  windows.AddWindow<shell::FavouritesRequest>(
      [&strings, &folders, hooks](const shell::FavouritesRequest& request) {
        return NewFavourites(strings, folders, hooks, request.type);
      });
  windows.AddDialog<shell::TemplatesRequest>(
      [&strings](const shell::TemplatesRequest& request, MWinTemplates::Done done) -> QWidget* {
        MWinTemplates* window = TemplatesWindow(strings, request);
        if (window != nullptr) window->Serve(std::move(done));
        return window;
      });
}

}  // namespace quill::ui
