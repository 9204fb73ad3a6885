#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <set>

#include "gui_world.h"
#include "shell/page_title_tag.h"
#include "ui/kit/qt_text.h"
#include "ui/menu_builder.h"
#include "ui/menu_window.h"

namespace quill::ui {
namespace {

using shell::CommandRow;
using shell::MenuState;
using shell::Place;

struct Chosen {
  std::string action;
  std::optional<std::int64_t> argument;
  bool operator==(const Chosen&) const = default;
};

/// The menu, with everything there that an action could need, and what was chosen in it.
struct MenuWorld {
  MenuWorld() { menu.Update(Everything()); }

  static MenuState Everything() { return {true, true, true, false, {}, {}}; }

  QAction* Entry(std::string_view action) { return menu.menu().findChild<QAction*>(ToQt(action)); }

  shell::StringTable strings;
  std::vector<Chosen> chosen;
  ActionMenu menu{strings, [this](const CommandRow& row, std::optional<std::int64_t> argument) {
                    chosen.push_back({std::string(row.action), argument});
                  }};
};

/// Calls `visit` for a menu and everything below it.
void VisitMenus(QMenu& menu, const std::function<void(QMenu&)>& visit) {
  visit(menu);
  for (QAction* action : menu.actions()) {
    if (action->menu() != nullptr) VisitMenus(*action->menu(), visit);
  }
}

// The table is the menu: each action that belongs there is there once, and choosing it runs that action and
// no other.
TEST(ActionMenu, HoldsEachActionOfTheTableOnce) {
  MenuWorld world;
  for (const CommandRow& row : shell::CommandTable()) {
    const auto entries = world.menu.menu().findChildren<QAction*>(ToQt(row.action));
    const bool isTag = row.action == "MenuItemPageTitleTagClick";
    ASSERT_EQ(entries.size(), row.place == Place::Menu && !isTag ? 1 : 0) << row.action;
    if (entries.isEmpty()) continue;
    world.chosen.clear();
    entries.first()->setEnabled(true);  // some need what is not there
    entries.first()->trigger();
    EXPECT_THAT(world.chosen, testing::ElementsAre(Chosen{std::string(row.action), std::nullopt}));
  }
}

// Each tag is an entry of its own with its sign, and hands on its own index.
TEST(ActionMenu, OffersEveryPageTitleTag) {
  MenuWorld world;
  QMenu* tags = nullptr;
  VisitMenus(world.menu.menu(), [&](QMenu& menu) {
    if (menu.actions().size() == 16 && menu.actions()[1]->text().contains(ToQt(shell::kPageTitleTags[1]))) {
      tags = &menu;
    }
  });
  ASSERT_NE(tags, nullptr);
  for (qsizetype i = 0; i < 16; ++i) {
    world.chosen.clear();
    tags->actions()[i]->trigger();
    EXPECT_THAT(world.chosen, testing::ElementsAre(Chosen{"MenuItemPageTitleTagClick", i}));
  }
}

// A menu that is longer than the screen, or whose letters lead to two entries, cannot be used by keyboard.
TEST(ActionMenu, EveryLevelIsShortAndEveryLetterLeadsToOneEntry) {
  for (const char* language : {"en", "de", "es", "fr", "ja", "zh-Hans"}) {
    MenuWorld world;
    world.strings.UseLanguage(language);
    world.menu.Retranslate();
    VisitMenus(world.menu.menu(), [&](QMenu& menu) {
      EXPECT_LE(menu.actions().size(), 18) << menu.title().toStdString();
      std::set<QString> letters;
      for (const QAction* action : menu.actions()) {
        const QString text = QString(action->text()).remove("&&");
        const qsizetype mark = text.indexOf('&');
        if (mark < 0) continue;
        EXPECT_TRUE(letters.insert(text.mid(mark + 1, 1).toLower()).second)
            << language << ": " << text.toStdString();
      }
    });
  }
}

// A greyed entry without a reason leaves its user guessing.
TEST(ActionMenu, GreysWhatCannotRunAndSaysWhy) {
  MenuWorld world;
  MenuState state = MenuWorld::Everything();
  state.oneNoteRunning = false;
  world.menu.Update(state);
  EXPECT_FALSE(world.Entry("MenuItemUpperCaseClick")->isEnabled());
  EXPECT_EQ(world.Entry("MenuItemUpperCaseClick")->toolTip(), "OneNote is not running");
  EXPECT_TRUE(world.Entry("MenuItemAboutClick")->isEnabled());
  world.menu.Update(MenuWorld::Everything());
  EXPECT_TRUE(world.Entry("MenuItemUpperCaseClick")->isEnabled());
  EXPECT_NE(world.Entry("MenuItemUpperCaseClick")->toolTip(), "OneNote is not running");
}

// The check mark follows the setting, whoever changed it; a click alone must not move it.
TEST(ActionMenu, ChecksMondayAsTheSettingSays) {
  MenuWorld world;
  MenuState state = MenuWorld::Everything();
  QAction* monday = world.Entry("MenuItemStartWithMondayClick");
  EXPECT_FALSE(monday->isChecked());
  state.startWithMonday = true;
  world.menu.Update(state);
  EXPECT_TRUE(monday->isChecked());
}

// Favourites come below the three fixed entries, in their order, and replace the former ones.
TEST(ActionMenu, ListsFavouritesBelowTheFixedEntries) {
  MenuWorld world;
  MenuState state = MenuWorld::Everything();
  state.favouritePages = {{"Plan & notes", 7}, {"Recipes", 8}};
  world.menu.Update(state);
  world.menu.Update(state);
  auto* pages = qobject_cast<QMenu*>(world.Entry("MenuItemManagerFavoritePages")->parent());
  ASSERT_NE(pages, nullptr);
  ASSERT_EQ(pages->actions().size(), 5);
  EXPECT_EQ(pages->actions()[0]->objectName(), "MenuItemFavoriteCurrentPageClick");
  EXPECT_EQ(pages->actions()[1]->objectName(), "MenuItemManagerFavoritePages");
  EXPECT_TRUE(pages->actions()[2]->isSeparator());
  EXPECT_EQ(pages->actions()[3]->text(), "Plan && notes");
  state.favouritePages.erase(state.favouritePages.begin());
  world.menu.Update(state);
  ASSERT_EQ(pages->actions().size(), 4);
  EXPECT_EQ(pages->actions()[3]->text(), "Recipes");
}

// A change of language must reach every entry and keep what was shown: keys, check mark, greyed entries.
TEST(ActionMenu, KeepsItsStateInAnotherLanguage) {
  MenuWorld world;
  const QKeySequence keys(Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_D);
  world.menu.ShowHotKeys({{shell::FindCommand("MenuItemInsertDateClick"), keys}});
  MenuState state = MenuWorld::Everything();
  state.startWithMonday = true;
  state.oneNoteRunning = false;
  world.menu.Update(state);
  world.menu.Retranslate();
  EXPECT_EQ(world.Entry("MenuItemInsertDateClick")->shortcut(), keys);
  EXPECT_TRUE(world.Entry("MenuItemStartWithMondayClick")->isChecked());
  EXPECT_FALSE(world.Entry("MenuItemUpperCaseClick")->isEnabled());
  EXPECT_EQ(world.menu.menu().findChildren<QAction*>("MenuItemAboutClick").size(), 1);
}

// Without a tray this window is the only way in: it must be usable by keys, and closing must not lose it.
TEST(MenuWindow, OffersTheMenuAndStaysReachable) {
  MenuWorld world;
  int found = 0;
  MenuWindow window(world.strings, world.menu.menu(), [&] { ++found; });
  window.show();
  ASSERT_TRUE(WaitUntil([&] { return window.isVisible(); }));
  EXPECT_THAT(UnnamedControls(window), testing::IsEmpty());
  Picture(window, "menu-window");
  window.findChildren<QPushButton*>()[1]->click();
  EXPECT_EQ(found, 1);
  window.ShowMenu();
  EXPECT_TRUE(WaitUntil([&] { return world.menu.menu().isVisible(); }));
  world.menu.menu().close();
  window.activateWindow();
  ASSERT_TRUE(WaitUntil([&] { return window.isActiveWindow(); }));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return window.isMinimized(); }));
  window.ShowMenu();
  EXPECT_TRUE(WaitUntil([&] { return !window.isMinimized() && world.menu.menu().isVisible(); }));
  world.menu.menu().close();
}

}  // namespace
}  // namespace quill::ui
