#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/x11/x11_hot_keys.h"
#include "program_world.h"

namespace quill::ui {
namespace {

using platform::HotKeyProblem;
using platform::HotKeyResult;
using platform::x11::X11HotKeys;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using x11_test::ChildProcess;
using x11_test::Eventually;

/// How often the window has pasted.
std::size_t Pastes(ChildProcess& window) {
  std::size_t count = 0;
  for (const std::string& line : window.Lines()) count += line.starts_with("pasted ");
  return count;
}

// The keys of the options' list, pressed with real modifiers held, as the user of another program does.
TEST_F(ProgramTest, DoesWhatItsHotKeysSay) {
  StartMenu();
  const auto window = world.Adversary();
  PressHotKey('d');
  EXPECT_TRUE(Eventually([&] { return Pastes(*window) == 1; })) << "date";
  ASSERT_TRUE(CommandEnds()) << said;
  PressHotKey('t');
  EXPECT_TRUE(Eventually([&] { return Pastes(*window) == 2; })) << "time";
  ASSERT_TRUE(CommandEnds()) << said;
  PressHotKey('l');
  EXPECT_TRUE(Eventually([&] { return Pastes(*window) == 3; })) << "page title";
  ASSERT_TRUE(CommandEnds()) << said;
  PressHotKey('c');
  EXPECT_TRUE(Eventually([&] { return world.ClipboardAs("UTF8_STRING") == "copied"; })) << "plain text";
  ASSERT_TRUE(CommandEnds()) << said;
  EXPECT_EQ(Pastes(*window), 3);
  PressHotKey('p');
  EXPECT_TRUE(world.BecomesActive("Find an action"));
}

// A key that the user has chosen works, and the one it replaces is free for other programs again.
TEST_F(ProgramTest, UsesTheKeysOfTheSettings) {
  ASSERT_EQ(Quill("settings set HotKeys 'MenuItemInsertDateClick=Control+Option+U'"), 0) << said;
  StartMenu();
  const auto window = world.Adversary();
  ASSERT_TRUE(Eventually([this] { return SomebodyHas("Control+Option+U"); }));
  PressChord({kControl, kAlt, kShift}, 'd');
  EXPECT_NE(window->WaitForLine("key Control+Alt+Shift+d"), "(none)");
  PressChord({kControl, kAlt}, 'u');
  EXPECT_THAT(window->WaitForLine("pasted "), Not(HasSubstr("none")));
  EXPECT_EQ(Pastes(*window), 1);
}

// A key that does nothing is a riddle; the user is told who is not to blame, and what to do.
TEST_F(ProgramTest, TellsWhichKeysAnotherProgramHas) {
  const auto other = std::move(*X11HotKeys::Open(world.display().c_str()));
  HotKeyProblem problem = HotKeyProblem::SystemError;
  other->Bind({{*platform::ParseKeyCombination("Control+Option+Shift+D"), 1, "a test"}},
              [&](const std::vector<HotKeyResult>& results) { problem = results.at(0).problem; });
  ASSERT_EQ(problem, HotKeyProblem::None);
  StartMenu();
  EXPECT_THAT(TextOfBox(), AllOf(HasSubstr("Another program has these keys"), HasSubstr("Ctrl+Alt+Shift+D"),
                                 Not(HasSubstr("Ctrl+Alt+Shift+T"))));
}

}  // namespace
}  // namespace quill::ui
