#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/remote.h"
#include "content/unicode_text.h"
#include "files/favourites/favourite_list.h"
#include "files/name_number.h"
#include "online/client_link.h"
#include "platform/clock.h"
#include "shell/favourites.h"
#include "shell/globals.h"

namespace quill::cli {
namespace {

using shell::FavoriteType;

/// One of the two lists, as the command line names it.
struct Kind {
  const char* name;
  FavoriteType type;
  const char* thing;
  const char* openAction;
};

constexpr Kind kKinds[] = {
    {"pages", FavoriteType::Pages, "page", "MenuItemFavoritePageItemClick"},
    {"sections", FavoriteType::Sections, "section", "MenuItemFavoriteSectionItemClick"}};

struct Options {
  std::string id;
  std::string link;
  bool json = false;
};

files::FavouriteList Load(const shell::Globals& globals, const Kind& kind) {
  files::FavouriteList list(shell::FavouritesFile(globals.folders, kind.type));
  if (!list.Problem().empty()) PrintError(list.Problem());
  return list;
}

void List(const Call& call, const Kind& kind, bool json) {
  nlohmann::json array = nlohmann::json::array();
  std::string text;
  for (const files::Favourite& one :
       Load(shell::OpenGlobals(call.root, platform::SystemClock()), kind).All()) {
    const std::string title = shell::FavouriteTitle(kind.type, one.link);
    array.push_back({{"id", one.id}, {"title", title}, {"link", one.link}});
    text += fmt::format("{}  {}\n", one.id, title);
  }
  constexpr auto kReplace = nlohmann::json::error_handler_t::replace;
  WriteOutput("", json ? array.dump(2, ' ', false, kReplace) + "\n" : text);
}

void SayUnlessSaved(const Status<>& saved) {
  if (!saved.ok()) throw Stop(kWorkFailed, saved.error());
}

void Add(const Call& call, const Kind& kind, const std::string& argument) {
  if (!content::IsValidUtf8(argument)) throw Stop(kWrongCall, "the link is not UTF-8");
  // A link from the clipboard has a web address in front of it and a line break at its end.
  const std::string link = online::NormalizeClientLink(content::TrimWhite(argument));
  if (link.empty())
    throw Stop(kWrongCall,
               fmt::format("this is no client link; one begins with {}", online::kClientLinkStart));
  const std::string_view id = shell::FavouriteId(kind.type, link);
  if (id.empty()) throw Stop(kWrongCall, fmt::format("the link names no {}", kind.thing));
  const shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  SayUnlessSaved(Load(globals, kind).Add(id, link));
}

/// The list, when the favourite is in it. Stops, naming the id, when it is not.
files::FavouriteList ListWith(const Call& call, const Kind& kind, const std::string& id) {
  files::FavouriteList list = Load(shell::OpenGlobals(call.root, platform::SystemClock()), kind);
  const std::vector<files::Favourite> all = list.All();
  if (std::ranges::find(all, id, &files::Favourite::id) == all.end()) {
    throw Stop(kWrongCall,
               fmt::format("there is no favourite {} \"{}\"; `quill favourites {} list` shows all",
                           kind.thing, id.substr(0, 80), kind.name));
  }
  return list;
}

void AddKind(CLI::App& favourites, Call& call, const Kind& kind, const std::shared_ptr<Options>& options) {
  CLI::App* app = favourites.add_subcommand(kind.name, fmt::format("The favourite {}", kind.name));
  app->require_subcommand(1);
  CLI::App* list = app->add_subcommand("list", "All of them: id and title, a line each");
  list->add_flag("--json", options->json, "A JSON array, with the links");
  list->callback([&call, &kind, options] { List(call, kind, options->json); });
  CLI::App* add =
      app->add_subcommand("add", fmt::format("Add the {} that a client link leads to", kind.thing));
  add->add_option("link", options->link, "The link; a web line in front of it is skipped")
      ->required()
      ->type_name("LINK");
  add->callback([&call, &kind, options] { Add(call, kind, options->link); });
  CLI::App* remove = app->add_subcommand("remove", "Take one away");
  remove->add_option("id", options->id, "Its id, as listed")->required()->type_name("ID");
  remove->callback(
      [&call, &kind, options] { SayUnlessSaved(ListWith(call, kind, options->id).Remove(options->id)); });
  CLI::App* open = app->add_subcommand("open", "Open one in OneNote, through the running application");
  open->add_option("id", options->id, "Its id, as listed")->required()->type_name("ID");
  open->callback([&call, &kind, options] {
    ListWith(call, kind, options->id);
    call.status = RunInApplication(call, kind.openAction, files::NumberOfName(options->id));
  });
}

}  // namespace

void AddFavourites(CLI::App& app, Call& call) {
  auto options = std::make_shared<Options>();
  CLI::App* favourites =
      app.add_subcommand("favourites", "List, add, remove and open favourite pages and sections");
  favourites->require_subcommand(1);
  for (const Kind& kind : kKinds) AddKind(*favourites, call, kind, options);
}

}  // namespace quill::cli
