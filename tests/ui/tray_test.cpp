#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program_world.h"

namespace quill::ui {
namespace {

using testing::HasSubstr;
using x11_test::Eventually;

constexpr std::uint8_t kLeftButton = 1, kRightButton = 3;

// The way to every action for whoever opens the menu by either button and chooses by its letters.
TEST_F(ProgramTest, OpensTheMenuByAClickAndRunsWhatItsLettersChoose) {
  const auto tray = StartTray();
  StartMenu();
  for (const std::uint8_t button : {kLeftButton, kRightButton}) {
    const auto window = world.Adversary();
    ASSERT_TRUE(OpensMenu(button)) << int{button};
    Type("t");  // Text
    ASSERT_TRUE(MenusBecome(2));
    // The program looks at the desktop while the menu opens; before that the entry is grey.
    EXPECT_TRUE(Eventually([this] {
      Type("u");  // UPPER CASE
      return OpenMenus() == 0;
    }));
    EXPECT_THAT(window->WaitForLine("pasted "), HasSubstr("<p>COPIED</p>")) << int{button};
  }
}

// Whoever does not know the letters finds everything with the arrow keys.
TEST_F(ProgramTest, LetsArrowKeysChooseInTheMenu) {
  const auto tray = StartTray();
  StartMenu();
  ASSERT_TRUE(OpensMenu(kLeftButton));
  for (int i = 0; i < 4; ++i) Tap(kUp);  // from the end: Quit, Practice Notebook, Find an Action, Quill Menu
  Tap(kRight);
  ASSERT_TRUE(MenusBecome(2));
  Tap(kReturn);  // Options
  EXPECT_TRUE(Appears("Options"));
  EXPECT_TRUE(MenusBecome(0));
  ASSERT_TRUE(OpensMenu(kLeftButton));
  Tap(kEscape);
  EXPECT_TRUE(MenusBecome(0));
}

// What cannot work is grey: choosing it must neither run it nor close the menu, until OneNote is there.
TEST_F(ProgramTest, RunsNothingThatIsGreyed) {
  const auto tray = StartTray();
  StartMenu();
  ASSERT_TRUE(OpensMenu(kLeftButton));
  Type("t");
  ASSERT_TRUE(MenusBecome(2));
  Type("u");
  Tap(kEscape);  // comes after the letter, and closes the submenu only
  EXPECT_TRUE(MenusBecome(1));
  Tap(kEscape);
  EXPECT_TRUE(MenusBecome(0));
  EXPECT_EQ(Quill("run upper-case"), 1);
  EXPECT_THAT(said, HasSubstr("OneNote was not found")) << "and not: busy with what the menu has started";
  EXPECT_EQ(Quill("settings get RecentActions"), 0);
  EXPECT_EQ(said, "\n");
}

// On a desktop without a tray the program would be invisible: a small window takes the icon's place.
TEST_F(ProgramTest, OffersItsMenuInAWindowUntilThereIsATray) {
  StartMenu();
  ASSERT_TRUE(world.BecomesActive("Quill Menu"));
  Tap(' ');
  ASSERT_TRUE(MenusBecome(1));
  Type("q");  // the submenu Quill Menu
  ASSERT_TRUE(MenusBecome(2));
  Type("r");
  EXPECT_TRUE(Appears("Ruler"));
  EXPECT_EQ(Quill("trigger MenuItemAboutClick"), 0) << said;
  EXPECT_TRUE(Appears("About Quill Menu"));
  EXPECT_TRUE(IsThere("Quill Menu"));
  const auto tray = StartTray();
  EXPECT_TRUE(Disappears("Quill Menu"));
  EXPECT_TRUE(OpensMenu(kLeftButton));
}

}  // namespace
}  // namespace quill::ui
