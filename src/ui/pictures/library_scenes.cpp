#include "ui/pictures/library_scenes.h"

#include "files/favourites/favourite_list.h"
#include "files/templates/template_folder.h"
#include "ui/kit/page_preview.h"
#include "ui/kit/qt_text.h"
#include "ui/pictures/scene_parts.h"
#include "ui/windows/favourites/win_favorite_pages.h"
#include "ui/windows/templates/win_templates.h"

namespace quill::ui {
namespace {

using shell::FavoriteType;

std::filesystem::path Below(const Studio& studio, const char* name) {
  return FromQt(studio.folder.filePath(QLatin1String(name)));
}

Look OpenFavourites(Studio& studio, FavoriteType type, bool areThere) {
  const std::filesystem::path file = Below(studio, "favourites.plist");
  constexpr std::pair<const char*, const char*> kPages[] = {{"Household", "Reading%20list"},
                                                            {"Garden", "Allotment:%20what%20grows%20where"},
                                                            {"Workshop", "Bicycle%20repairs"},
                                                            {"Caf%C3%A9", ""}};
  for (const auto& [section, title] : kPages) {
    if (!areThere) break;
    const std::string link = std::string("onenote:https://d.docs.live.net/7c/N/")
                                 .append(section)
                                 .append(".one#")
                                 .append(title)
                                 .append("&end");
    static_cast<void>(files::FavouriteList(file).Add(section, link));
  }
  return InFront(
      new MWinFavoritePages(studio.strings, type, file, {[](const auto&) {}, [](const auto&, auto) {}}));
}

Look OpenTemplates(Studio& studio, bool areThere) {
  shell::TemplatesRequest request;
  request.folder = Below(studio, "Template");
  request.fill = [](std::string_view html) { return std::string(html); };
  constexpr std::pair<const char*, const char*> kTemplates[] = {
      {"Meeting",
       "<h2>Meeting of 12 November 2026</h2><p>Present:</p><table><tr><td><b>What</b></td><td><b>Who</b></td>"
       "<td><b>Until</b></td></tr><tr><td>&nbsp;</td><td>&nbsp;</td><td>&nbsp;</td></tr></table>"},
      {"Recipe", "<h2>Recipe</h2>"},
      {"Weekly review", "<h2>Week</h2>"}};
  for (const auto& [name, html] : kTemplates) {
    if (areThere) static_cast<void>(files::SaveTemplate(request.folder, name, html));
  }
  auto* window = new MWinTemplates(studio.strings, request);
  window->Serve([](const auto&) {});
  InFront(window);
  return [window = QPointer(window), areThere]() -> QList<QWidget*> {
    if (!window || (areThere && window->findChild<PagePreview*>()->document()->isEmpty())) return {};
    return {window};
  };
}

}  // namespace

std::vector<Scene> LibraryScenes() {
  const auto favourites = [](FavoriteType type, bool areThere) {
    return [=](Studio& studio) { return OpenFavourites(studio, type, areThere); };
  };
  const auto templates = [](bool areThere) {
    return [areThere](Studio& studio) { return OpenTemplates(studio, areThere); };
  };
  return {{QStringLiteral("favourite-pages"), favourites(FavoriteType::Pages, true)},
          {QStringLiteral("favourite-pages-none"), favourites(FavoriteType::Pages, false)},
          {QStringLiteral("favourite-sections-none"), favourites(FavoriteType::Sections, false)},
          {QStringLiteral("templates"), templates(true)},
          {QStringLiteral("templates-none"), templates(false)}};
}

}  // namespace quill::ui
