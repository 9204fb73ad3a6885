#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "program_world.h"
#include "shell/command_table.h"
#include "shell/string_table.h"

namespace quill::ui {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using x11_test::ChildProcess;
using x11_test::Eventually;
using Lines = std::vector<std::string>;

/// A desktop that shows status items by messages on the session bus instead of windows.
class StatusItemTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    const std::string address = "unix:path=" + (folder / "bus").string();
    bus = world.Start({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog",
                       "--address=" + address, "--print-address"});
    ASSERT_THAT(bus->WaitForLine(address), HasSubstr("guid"));
    ::setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
    desktop = world.Start({QUILL_TRAY_HOST});
    ASSERT_NE(desktop->WaitForLine("ready"), "(none)");
  }
  void TearDown() override {
    menu.reset();
    desktop.reset();
    bus.reset();
    ProgramTest::TearDown();
  }

  /// What the desktop answers to an order.
  Lines Ask(const std::string& order) {
    const std::size_t before = desktop->Lines().size();
    const auto isAnswered = [&] {
      const Lines& all = desktop->Lines();
      return all.size() > before && all.back() == "done";
    };
    desktop->Say(order);
    if (!Eventually(isAnswered)) return {"no answer"};
    const Lines& all = desktop->Lines();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end() - 1};
  }

  std::unique_ptr<ChildProcess> bus;
  std::unique_ptr<ChildProcess> desktop;
};

/// What the menu is made from, as the desktop would list it.
Lines EntriesOfTheTable() {
  const shell::StringTable strings;
  Lines entries;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    if (row.place != shell::Place::Menu || row.group == shell::CommandGroup::Favourites) continue;
    const std::string group(strings.Text(shell::GroupTitleKey(row.group)));
    const std::string title(strings.Text(row.titleKey));
    entries.push_back(row.group == shell::CommandGroup::Top ? title : group + "/" + title);
  }
  return entries;
}

/// Entries without their greyed state.
Lines Names(Lines entries) {
  for (std::string& entry : entries) entry = entry.substr(0, entry.find(" (disabled)"));
  return entries;
}

// Most desktops show no windows in their trays but ask for the menu and draw it themselves.
TEST_F(StatusItemTest, GivesTheDesktopItsNameAndTheWholeMenu) {
  StartMenu();
  ASSERT_NE(desktop->WaitForLine("item "), "(none)");
  EXPECT_THAT(Ask("title"), ElementsAre("Quill Menu"));
  EXPECT_THAT(Ask("tooltip"), ElementsAre(kBoxTitle));
  const Lines entries = Names(Ask("layout"));
  for (const std::string& expected : EntriesOfTheTable()) EXPECT_THAT(entries, Contains(expected));
  EXPECT_THAT(entries, Contains("Title/Page Title Tag/No Tag"));
  EXPECT_THAT(entries, Contains("Favourites/Favourite Pages/Manage Favourite Pages…"));
}

// A menu drawn by the desktop must be greyed by what is there when it opens, not by what was there before.
TEST_F(StatusItemTest, GreysAndRunsEntriesOfAMenuThatTheDesktopDraws) {
  const auto listed = [this](const char* entry) {
    return Eventually([&] {
      Ask("about-to-show");
      const Lines entries = Ask("layout");
      return std::find(entries.begin(), entries.end(), entry) != entries.end();
    });
  };
  StartMenu();
  ASSERT_NE(desktop->WaitForLine("item "), "(none)");
  EXPECT_TRUE(listed("Text/UPPER CASE (disabled)"));
  {
    const auto window = world.Adversary();
    EXPECT_TRUE(listed("Text/UPPER CASE"));
    EXPECT_TRUE(Ask("choose Text/UPPER CASE").empty());
    EXPECT_THAT(window->WaitForLine("pasted "), HasSubstr("<p>COPIED</p>"));
  }
  EXPECT_TRUE(listed("Text/UPPER CASE (disabled)"));
  EXPECT_TRUE(Ask("choose Quill Menu/About Quill Menu").empty());
  EXPECT_TRUE(Appears("About Quill Menu"));
}

// A plain click has one meaning, whichever way the desktop hands it over.
TEST_F(StatusItemTest, OpensItsMenuByAClick) {
  StartMenu();
  ASSERT_NE(desktop->WaitForLine("item "), "(none)");
  Ask("activate");
  EXPECT_TRUE(MenusBecome(1));
  Tap(kEscape);
  EXPECT_TRUE(MenusBecome(0));
}

// The menu speaks the language of the settings from the first moment, and another one as soon as it is set.
TEST_F(StatusItemTest, SpeaksTheLanguageOfTheSettings) {
  ASSERT_EQ(Quill("settings set Language de"), 0) << said;
  StartMenu();
  const auto layoutHas = [this](std::string_view key, std::string_view language) {
    const shell::StringTable strings(language);
    const std::string title(strings.Text(key));
    return Eventually([&] {
      Ask("about-to-show");
      for (std::string line : Ask("layout")) {
        line.erase(std::remove(line.begin(), line.end(), '_'), line.end());
        line.erase(std::remove(line.begin(), line.end(), '&'), line.end());
        if (line.find(title) != std::string::npos) return true;
      }
      return false;
    });
  };
  EXPECT_TRUE(layoutHas("menuGroupTemplates", "de"));
  EXPECT_TRUE(layoutHas("menuUpperCase", "de"));
  ASSERT_EQ(Quill("settings set Language fr"), 0) << said;
  EXPECT_TRUE(layoutHas("menuUpperCase", "fr"));
}

}  // namespace
}  // namespace quill::ui
