#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QListView>

#include "files/favourites/favourite_list.h"
#include "files/name_number.h"
#include "gui_world.h"
#include "shell/command_world.h"
#include "shell/temporary_folder.h"
#include "ui/kit/qt_text.h"
#include "ui/menu_builder.h"
#include "ui/palette_host.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;

std::string Link(const std::string& section, const std::string& title) {
  return "onenote:https://h/" + section + ".one#" + title + "&section-id={S}&page-id={P}&end";
}

/// Menu and palette over favourites that lie in files, and what was chosen.
class FavouritesMenu : public testing::Test {
 protected:
  FavouritesMenu() {
    desktop.globals.folders.FavPagesFile = folder.path() / "p.plist";
    desktop.globals.folders.FavSectionsFile = folder.path() / "s.plist";
  }

  files::FavouriteList Pages() { return files::FavouriteList(desktop.globals.folders.FavPagesFile); }

  /// As at each opening of the menu.
  void Look() {
    const shell::MenuState state =
        shell::LookAtMenuState({"recording", &desktop.recording, &desktop.recording}, desktop.globals);
    menu.Update(state);
    palette.Update(state);
  }

  QMenu& Submenu() {
    auto* add = menu.menu().findChild<QAction*>(QStringLiteral("MenuItemFavoriteCurrentPageClick"));
    return *qobject_cast<QMenu*>(add->parent());
  }
  std::vector<std::string> Listed() {
    std::vector<std::string> titles;
    for (const QAction* action : Submenu().actions().mid(3)) titles.push_back(FromQt(action->text()));
    return titles;
  }

  /// What the palette finds.
  std::vector<std::string> Found(const std::string& query) {
    auto* window = OpenWindow<WinPalette>();
    window->findChild<QLineEdit*>()->setText(ToQt(query));
    std::vector<std::string> titles;
    const QAbstractItemModel& model = *window->findChild<QListView*>()->model();
    for (int row = 0; row < model.rowCount(); ++row)
      titles.push_back(FromQt(model.index(row, 0).data(Qt::AccessibleTextRole).toString()));
    return titles;
  }

  OnAction Choose() {
    return [this](const shell::CommandRow& row, std::optional<std::int64_t> argument) {
      chosen.push_back(std::string(row.action) + " " + std::to_string(argument.value_or(0)));
    };
  }

  test::TemporaryFolder folder;
  test::CommandWorld desktop;
  shell::StringTable strings;
  std::vector<std::string> chosen;
  std::string recent;
  ActionMenu menu{strings, Choose()};
  PaletteHost palette{strings, [this] { return recent; }, Choose()};
};

// What was added a moment ago is there at the next opening, what was removed is gone, in any language.
TEST_F(FavouritesMenu, FollowsTheFile) {
  Look();
  EXPECT_THAT(Listed(), testing::IsEmpty());
  ASSERT_TRUE(Pages().Add("b", Link("S", "Zebra")).ok());
  ASSERT_TRUE(Pages().Add("a", Link("S", "Ant")).ok());
  Look();
  EXPECT_THAT(Listed(), ElementsAre("Zebra", "Ant"));
  QAction* ant = Submenu().actions().last();
  Look();
  EXPECT_EQ(Submenu().actions().last(), ant) << "an open submenu would lose its place";
  ASSERT_TRUE(Pages().Remove("b").ok());
  Look();
  menu.Retranslate();
  EXPECT_THAT(Listed(), ElementsAre("Ant"));
  Submenu().actions().last()->trigger();
  EXPECT_THAT(chosen,
              ElementsAre("MenuItemFavoritePageItemClick " + std::to_string(files::NumberOfName("a"))));
}

// A title is any text: it must neither widen the menu over the screen nor be taken for markup or a letter's
// mark.
TEST_F(FavouritesMenu, ShowsStrangeTitlesInOneShortLine) {
  const std::string wide(3000, 'W');
  ASSERT_TRUE(Pages().Add("1", Link("S", wide)).ok());
  ASSERT_TRUE(Pages().Add("2", Link("S", "a%0A%26b%09%3Cimg%20src=%22x%22%3E")).ok());
  ASSERT_TRUE(Pages().Add("3", "onenote:").ok());
  Look();
  ASSERT_EQ(Listed().size(), 3u);
  EXPECT_LT(Submenu().sizeHint().width(), Submenu().fontMetrics().averageCharWidth() * 80);
  EXPECT_EQ(Listed()[1], "a &&b <img src=\"x\">");
  EXPECT_EQ(Listed()[2], "(untitled)");
  const QString tip = Submenu().actions()[4]->toolTip();
  EXPECT_FALSE(tip.contains(QStringLiteral("<img"))) << FromQt(tip);
  Picture(Submenu(), "menu-favourites");
}

// Who types instead of looking through menus finds favourites by their titles, and those used last first.
TEST_F(FavouritesMenu, IsInThePalette) {
  palette.Open();
  ASSERT_NE(WaitForWindow<WinPalette>(), nullptr);
  EXPECT_THAT(Found("allotment"), testing::IsEmpty());
  ASSERT_TRUE(Pages().Add("a", Link("S", "Allotment%20plan")).ok());
  ASSERT_TRUE(Pages().Add("b", Link("S", "Bicycle")).ok());
  Look();
  EXPECT_THAT(Found("allotment"), ElementsAre("Allotment plan, Favourite Pages"));
  Press(Qt::Key_Return);
  const std::string opened = "MenuItemFavoritePageItemClick " + std::to_string(files::NumberOfName("a"));
  EXPECT_THAT(chosen, ElementsAre(opened));
  recent = "MenuItemFavoritePageItemClick:" + std::to_string(files::NumberOfName("b"));
  palette.Open();
  ASSERT_NE(WaitForWindow<WinPalette>(), nullptr);
  EXPECT_EQ(Found("").at(0), "Bicycle, Favourite Pages");
  ASSERT_TRUE(Pages().Remove("a").ok());
  Look();
  EXPECT_THAT(Found("allotment"), testing::IsEmpty());
  EXPECT_EQ(Found("").at(0), "Bicycle, Favourite Pages");
}

}  // namespace
}  // namespace quill::ui
