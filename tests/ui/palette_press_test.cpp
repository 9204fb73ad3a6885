#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "content/text_between.h"
#include "program_world.h"

namespace quill::ui {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using x11_test::ChildProcess;
using x11_test::Eventually;
using x11_test::KeysOf;

constexpr const char* kPalette = "Find an action";

/// What the window has pasted, one after the other.
std::vector<std::string> PastedBy(ChildProcess& window) {
  std::vector<std::string> pasted;
  for (const std::string& line : window.Lines()) {
    if (line.starts_with("pasted "))
      pasted.emplace_back(content::TextBetween(line, "<!--StartFragment-->", "<!--EndFragment-->"));
  }
  return pasted;
}

class PalettePressTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    StartMenu();
    window = world.Adversary({"html=<p>Some text</p>"});
  }

  void OpenPalette() {
    PressHotKey('p');
    ASSERT_TRUE(world.BecomesActive(kPalette));
  }

  /// Return, again while the palette still refuses: it looks at the desktop when it opens, and until it knows
  /// that OneNote is there nothing can be run.
  void Choose() {
    EXPECT_TRUE(Eventually([this] {
      Tap(kReturn);
      return !IsThere(kPalette);
    }));
  }

  std::unique_ptr<ChildProcess> window;
};

// Few letters instead of a way through menus: the text changes in the window that the user has come from.
TEST_F(PalettePressTest, RunsWhatIsFoundInTheWindowBeneath) {
  OpenPalette();
  Type("upper");
  Choose();
  EXPECT_TRUE(Eventually([&] { return PastedBy(*window) == std::vector<std::string>{"<p>SOME TEXT</p>"}; }));
  EXPECT_TRUE(world.BecomesActive("OneNote"));
  EXPECT_FALSE(IsThere(kPalette));
  EXPECT_EQ(KeysOf(*window).find('u'), std::string::npos) << "what was typed to find it went into the page";
}

// What was used last is the most likely next: it comes first, in the next run of the program too.
TEST_F(PalettePressTest, OffersWhatWasUsedLastFirst) {
  for (const char* letters : {"lower", "upper"}) {
    const std::size_t before = PastedBy(*window).size();
    OpenPalette();
    Type(letters);
    Choose();
    ASSERT_TRUE(Eventually([&] { return PastedBy(*window).size() == before + 1; })) << letters;
    ASSERT_TRUE(CommandEnds()) << said;
    ASSERT_TRUE(world.BecomesActive("OneNote"));
  }
  OpenPalette();
  Choose();
  ASSERT_TRUE(Eventually([&] { return PastedBy(*window).size() == 3; }));
  ASSERT_TRUE(CommandEnds()) << said;
  EXPECT_EQ(PastedBy(*window).back(), "<p>SOME TEXT</p>");
  menu.reset();
  EXPECT_EQ(Quill("settings get RecentActions"), 0);
  EXPECT_THAT(said, StartsWith("MenuItemUpperCaseClick,MenuItemLowerCaseClick"));
  StartMenu();
  ASSERT_TRUE(world.BecomesActive("OneNote"));
  OpenPalette();
  Tap(kDown);
  Choose();
  ASSERT_TRUE(Eventually([&] { return PastedBy(*window).size() == 4; }));
  EXPECT_EQ(PastedBy(*window).back(), "<p>some text</p>");
}

// Who has opened it by mistake gets back to the page with everything as it was.
TEST_F(PalettePressTest, LeavesEverythingAsItWasWhenClosed) {
  const auto owner = world.ClipboardOwner({{"text/html", "<p>mine</p>"}});
  window->Say("activate");
  ASSERT_TRUE(world.BecomesActive("OneNote"));
  OpenPalette();
  Type("upper");
  Tap(kEscape);
  EXPECT_TRUE(world.BecomesActive("OneNote"));
  EXPECT_TRUE(Disappears(kPalette));
  EXPECT_TRUE(PastedBy(*window).empty());
  EXPECT_EQ(KeysOf(*window), "");
  EXPECT_EQ(world.ClipboardAs("text/html"), "<p>mine</p>");
  EXPECT_EQ(Quill("settings get RecentActions"), 0);
  EXPECT_EQ(said, "\n");
}

// It must not come up dead behind a window that waits for an answer, where not even Escape would close it.
TEST_F(PalettePressTest, OpensAboveAWindowThatWaits) {
  const auto command = world.Start({QUILL_PROGRAM, "trigger", "MenuItemDiagnosticsClick"});
  ASSERT_TRUE(world.BecomesActive("Save diagnostics"));
  OpenPalette();
  Tap(kEscape);
  EXPECT_TRUE(world.BecomesActive("Save diagnostics"));
  EXPECT_TRUE(Disappears(kPalette));
  Tap(kEscape);
  EXPECT_TRUE(Disappears("Save diagnostics"));
}

}  // namespace
}  // namespace quill::ui
