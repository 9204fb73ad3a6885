#include "files/favourites/favourite_list.h"
#include "library_world.h"
#include "ui/windows/favourites/win_favorite_pages.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string Link(const std::string& section, const std::string& title) {
  return "onenote:https://d.docs.live.net/7c/N/" + section + ".one#" + title +
         "&section-id={S}&page-id={P}&end";
}

class FavouritesWindow : public LibraryTest {
 protected:
  void AddPages(const std::vector<std::pair<std::string, std::string>>& links) {
    for (const auto& [id, link] : links)
      ASSERT_TRUE(files::FavouriteList(desktop.globals.folders.FavPagesFile).Add(id, link).ok());
  }
  void AddThree() {
    AddPages({{"1", Link("Garden", "Allotment")},
              {"2", Link("Kitchen", "")},
              {"3", Link("Caf%C3%A9", "Reading%20list")}});
  }
  /// Opens the window as the menu does.
  MWinFavoritePages* Open(std::string_view action = "ManagerFavoritePages") {
    shell::FindCommand(action)->window(world.ui);
    return WaitForWindow<MWinFavoritePages>();
  }
  std::vector<std::string> Ids() {
    std::vector<std::string> ids;
    for (const auto& one : files::FavouriteList(desktop.globals.folders.FavPagesFile).All())
      ids.push_back(one.id);
    return ids;
  }
};

// The whole way without a mouse: found by a word of its section, opened, and the window stays for the next
// one.
TEST_F(FavouritesWindow, OpensWhatWasTyped) {
  AddThree();
  QPointer<MWinFavoritePages> window = Open();
  ASSERT_FALSE(window.isNull());
  EXPECT_EQ(FromQt(window->windowTitle()), "Favourite Pages");
  EXPECT_THAT(Listed(*window), ElementsAre("Allotment, Garden", "Kitchen", "Reading list, Café"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window), testing::UnorderedElementsAre("Filter favourites", "Favourite Pages", "Open",
                                                               "Remove", "Close"));
  Picture(*window, "favourites");
  Type("cafe");
  Press(Qt::Key_Return);
  Press(Qt::Key_Escape);
  ASSERT_FALSE(window.isNull()) << "the filter goes first";
  QListView& view = View(*window);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(1, 0)).center());
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
  EXPECT_EQ(desktop.recording.transcript(),
            "run open " + Link("Caf%C3%A9", "Reading%20list") + "; run open " + Link("Kitchen", ""));
  EXPECT_THAT(Ids(), SizeIs(3));
}

// Delete takes the current row out of list and file, from the field and from the list, but never eats a typed
// text.
TEST_F(FavouritesWindow, RemovesTheCurrentOne) {
  AddThree();
  auto* window = Open();
  ASSERT_NE(window, nullptr);
  Type("x");
  Press(Qt::Key_Home);
  Press(Qt::Key_Delete);
  EXPECT_EQ(FromQt(Field(*window).text()), "");
  Press(Qt::Key_Down);
  Press(Qt::Key_Delete);
  ASSERT_TRUE(WaitUntil([&] { return Listed(*window).size() == 2; }));
  EXPECT_EQ(Current(*window), "Reading list") << "the next one has its place";
  EXPECT_THAT(Ids(), ElementsAre("1", "3"));
  View(*window).setFocus();
  Press(Qt::Key_Delete);
  ASSERT_TRUE(WaitUntil([&] { return Listed(*window).size() == 1; }));
  Click(*window, "remove");
  ASSERT_TRUE(WaitUntil([&] { return Listed(*window).empty(); }));
  EXPECT_THAT(Ids(), IsEmpty());
  EXPECT_FALSE(window->findChild<QPushButton*>(QStringLiteral("open"))->isEnabled());
  EXPECT_THAT(FromQt(Field(*window).accessibleDescription()), HasSubstr("no favourite pages yet"));
  Press(Qt::Key_Delete);
  Press(Qt::Key_Return);
  Picture(*window, "favourites-none");
  EXPECT_EQ(desktop.recording.transcript(), "");
}

// Sections have their own list and title; what cannot be read says why instead of looking empty.
TEST_F(FavouritesWindow, TellsADamagedFile) {
  folder.Write("quillfavsections.plist", "junk");
  auto* window = Open("ManagerFavoriteSections");
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(FromQt(window->windowTitle()), "Favourite Sections");
  EXPECT_THAT(FromQt(Field(*window).accessibleDescription()), HasSubstr("quillfavsections.plist"));
  Picture(*window, "favourites-damaged");
}

// Titles are whatever people write on pages, and there may be thousands.
TEST_F(FavouritesWindow, TakesManyAndStrangeTitles) {
  {
    files::MConfig config(desktop.globals.folders.FavPagesFile);
    config.WriteString("long", Link("S", std::string(20'000, 'w')));
    config.WriteString("markup", Link("S", "%3Cimg%20src=x%3E%0A%26b"));
    config.WriteString("rtl", Link("S", "%D7%A9%D7%9C%D7%95%D7%9D%20(1)"));
    config.WriteString("none", "");
    for (int i = 0; i < 3000; ++i)
      config.WriteString("P" + std::to_string(i), Link("S", "Page%20" + std::to_string(i)));
    ASSERT_TRUE(config.Save().ok());
  }
  auto* window = Open();
  ASSERT_NE(window, nullptr);
  ASSERT_THAT(Listed(*window), SizeIs(3004));
  EXPECT_EQ(Listed(*window)[1], "<img src=x> &b, S");
  EXPECT_EQ(Listed(*window)[3], "(untitled)");
  Picture(*window, "favourites-many");
  Type("page 2999");
  EXPECT_THAT(Listed(*window), ElementsAre("Page 2999, S"));
}

}  // namespace
}  // namespace quill::ui
