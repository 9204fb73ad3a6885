#include "shell/favourite_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <any>

#include "base/atomic_file.h"
#include "files/favourites/favourite_list.h"
#include "files/name_number.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/library_requests.h"
#include "shell/menu_state.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

using files::Favourite;
using files::FavouriteList;
using test::CommandWorld;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Link(std::string_view section, std::string_view title, std::string_view sectionId,
                 std::string_view pageId) {
  std::string link("onenote:https://d.docs.live.net/7c/Documents/N/");
  return link.append(section)
      .append(".one#")
      .append(title)
      .append("&section-id={")
      .append(sectionId)
      .append("}&page-id={")
      .append(pageId)
      .append("}&end");
}

/// A desktop on which OneNote hands over the link to a page.
class Favourites : public testing::Test {
 protected:
  Favourites() {
    world.globals.folders.FavPagesFile = folder.path() / "quillfavpages.plist";
    world.globals.folders.FavSectionsFile = folder.path() / "quillfavsections.plist";
    // What this desktop copies is copied by Command+C.
    world.globals.scripts.ScriptCopyPageLink = world.globals.scripts.ScriptCopy;
  }

  void Do(std::string_view action, std::int64_t argument = 0) {
    const CommandRow* row = FindCommand(action);
    ASSERT_NE(row, nullptr) << action;
    CommandContext context{world.services, world.globals, argument};
    row->handler(context, *row);
  }

  /// Asks for the current page or section while OneNote copies this text; what the user is told.
  std::string Add(std::string_view action, std::string_view copied) {
    world.recording.SetSelection({std::nullopt, std::string(copied), std::nullopt});
    const std::size_t before = world.recording.messages().size();
    Do(action);
    EXPECT_EQ(world.recording.clipboard().text, "the user's own");
    return world.recording.messages().size() == before + 1 ? world.recording.messages().back()
                                                           : "not one message";
  }

  std::vector<Favourite> Pages() { return FavouriteList(world.globals.folders.FavPagesFile).All(); }
  std::vector<Favourite> Sections() { return FavouriteList(world.globals.folders.FavSectionsFile).All(); }
  MenuState Menu() {
    return LookAtMenuState({"recording", &world.recording, &world.recording}, world.globals);
  }
  std::string Text(std::string_view key) { return std::string(world.strings.Text(key)); }

  test::TemporaryFolder folder;
  CommandWorld world;
};

// The whole way of a bookmark: added, in the menu under its title, opened; twice is once, with the newer
// link.
TEST_F(Favourites, ArePagesThatOpenAgain) {
  const std::string plan = Link("Work", "Plan%20%26%20notes", "S1", "P1");
  EXPECT_EQ(Add("FavoriteCurrentPage", "https://web\n" + plan), Text("msgFavoritePageSuccess"));
  const std::string moved = Link("Old%20work", "Plan", "S2", "P1");
  EXPECT_EQ(Add("FavoriteCurrentPage", "https://web\n" + Link("Work", "", "S1", "P2")),
            Text("msgFavoritePageSuccess"));
  ASSERT_EQ(Menu().favouritePages.size(), 2u);
  EXPECT_EQ(Menu().favouritePages[0].title, "Plan & notes");
  EXPECT_EQ(Menu().favouritePages[1].title, "Work") << "a page without a title has its section's name";
  Add("FavoriteCurrentPage", "https://web\n" + moved);
  EXPECT_THAT(Pages(), ElementsAre(Favourite{"P1", moved}, Favourite{"P2", Link("Work", "", "S1", "P2")}));
  Do("FavoritePageItem", Menu().favouritePages[0].argument);
  EXPECT_THAT(world.recording.transcript(), testing::EndsWith("run open " + moved));
  EXPECT_THAT(Menu().favouriteSections, IsEmpty());
}

// A section is known by its own id, whichever of its pages was open, and lies in a file of its own.
TEST_F(Favourites, AreSectionsThatOpenAgain) {
  const std::string first = Link("Caf%C3%A9", "A", "S1", "P1"), second = Link("Caf%C3%A9", "B", "S1", "P2");
  EXPECT_EQ(Add("FavoriteCurrentSection", "https://web\n" + first), Text("msgFavoriteSectionSuccess"));
  EXPECT_EQ(Add("FavoriteCurrentSection", "https://web\n" + second), Text("msgFavoriteSectionSuccess"));
  EXPECT_THAT(Sections(), ElementsAre(Favourite{"S1", second}));
  EXPECT_THAT(Pages(), IsEmpty());
  ASSERT_EQ(Menu().favouriteSections.size(), 1u);
  EXPECT_EQ(Menu().favouriteSections[0].title, "Caf\u00e9");
  Do("FavoriteSectionItem", Menu().favouriteSections[0].argument);
  EXPECT_THAT(world.recording.transcript(), testing::EndsWith("run open " + second));
}

// What is not a page's link is told, and never becomes a bookmark that opens something else.
TEST_F(Favourites, RefuseWhatIsNoLink) {
  EXPECT_EQ(Add("FavoriteCurrentPage", ""), Text("msgFavoritePageFailure"));
  EXPECT_EQ(Add("FavoriteCurrentSection", ""), Text("msgFavoriteSectionFailure"));
  const std::string link = Link("W", "T", "S", "P");
  for (const std::string& text :
       {link, "https://web\r\n" + link, "https://web\n" + link + "\n", std::string("a\nb"),
        std::string("a\nonenote:https://h/W.one#T&section-id=&page-id=&end"),
        std::string("file:///etc/passwd\n&page-id={P}")}) {
    EXPECT_EQ(Add("FavoriteCurrentPage", text), "Get links of current page error!!") << text;
    EXPECT_EQ(Add("FavoriteCurrentSection", text), "Get links of current section error!!") << text;
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

// The menu may be older than the file, and the number from anywhere: a favourite that is gone opens nothing.
TEST_F(Favourites, OpenNothingThatIsGone) {
  Add("FavoriteCurrentPage", "w\n" + Link("W", "T", "S", "P"));
  const std::int64_t number = Menu().favouritePages.at(0).argument;
  ASSERT_TRUE(FavouriteList(world.globals.folders.FavPagesFile).Remove("P").ok());
  ASSERT_TRUE(FavouriteList(world.globals.folders.FavPagesFile).Add("empty", "").ok());
  const std::string before = world.recording.transcript();
  for (const std::int64_t argument :
       {number, files::NumberOfName("empty"), std::int64_t{0}, std::int64_t{-1}})
    Do("FavoritePageItem", argument);
  EXPECT_EQ(world.recording.transcript(), before);
}

// A damaged file must not take the adding with it, and a full disk must not look like success.
TEST_F(Favourites, TellTroubleWithTheirFile) {
  std::ofstream(world.globals.folders.FavPagesFile) << "junk";
  EXPECT_THAT(Menu().favouritePages, IsEmpty());
  world.recording.SetSelection({std::nullopt, "w\n" + Link("W", "T", "S", "P"), std::nullopt});
  Do("FavoriteCurrentPage");
  EXPECT_THAT(world.recording.messages(),
              ElementsAre(HasSubstr("quillfavpages.plist.bad"), Text("msgFavoritePageSuccess")));
  EXPECT_EQ(Pages().size(), 1u);
  world.globals.folders.FavPagesFile = folder.path() / "gone" / "f.plist";
  EXPECT_THAT(Add("FavoriteCurrentPage", "w\n" + Link("W", "T", "S", "P")), HasSubstr("could not be saved"));
}

// The menu stays usable with more bookmarks than anybody has, and the window's wishes are carried out in
// order.
TEST_F(Favourites, AreManaged) {
  {
    files::MConfig config(world.globals.folders.FavPagesFile);
    for (int i = 0; i < 700; ++i) config.WriteString("P" + std::to_string(i), Link("W", "T", "S", "P"));
    ASSERT_TRUE(config.Save().ok());
  }
  EXPECT_EQ(Menu().favouritePages.size(), kMostFavouriteItems);
  CommandContext context{world.services, world.globals};
  RemoveFavourite(context, FavoriteType::Pages, "P1");
  OpenFavourite(context, FavoriteType::Pages, "P1");
  OpenFavourite(context, FavoriteType::Sections, "P2");
  OpenFavourite(context, FavoriteType::Pages, "P2");
  EXPECT_EQ(Pages().size(), 699u);
  EXPECT_EQ(world.recording.transcript(), "run open " + Link("W", "T", "S", "P"))
      << "one that is gone was opened";
}

}  // namespace
}  // namespace quill::shell
