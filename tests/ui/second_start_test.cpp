#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program_world.h"

namespace quill::ui {
namespace {

// Two icons would do everything twice, and who starts the program again looks for what it has to offer.
TEST_F(ProgramTest, ShowsTheMenuOfTheRunningOneWhenStartedAgain) {
  StartMenu();
  EXPECT_EQ(StartAgain(), 0);
  EXPECT_TRUE(MenusBecome(1));
  EXPECT_TRUE(menu->Running());
  Tap(kEscape);
  EXPECT_TRUE(MenusBecome(0));
  EXPECT_EQ(StartAgain({"--practice"}), 0);
  EXPECT_TRUE(Appears("Practice Notebook"));
}

// A command that waits for its user must not lock this user out of the rest.
TEST_F(ProgramTest, ShowsTheMenuWhileACommandWaitsForItsUser) {
  StartMenu();
  const auto window = world.Adversary();
  const auto command = world.Start({QUILL_PROGRAM, "trigger", "MenuItemDiagnosticsClick"});
  ASSERT_TRUE(world.BecomesActive("Save diagnostics"));
  EXPECT_EQ(StartAgain(), 0);
  EXPECT_TRUE(MenusBecome(1));
  Tap(kEscape);
  EXPECT_TRUE(MenusBecome(0));
  EXPECT_EQ(Quill("run upper-case"), 1);
  EXPECT_THAT(said, testing::HasSubstr("still working"));
  Tap(kEscape);
  EXPECT_TRUE(Disappears("Save diagnostics"));
  EXPECT_TRUE(x11_test::Eventually([&] { return !command->Running(); }));
}

}  // namespace
}  // namespace quill::ui
