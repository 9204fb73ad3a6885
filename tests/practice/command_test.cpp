// Whole commands on the practice notebook, as a menu click runs them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/recording/recording.h"
#include "practice/practice_world.h"
#include "shell/content_requests.h"
#include "shell/globals.h"
#include "shell/onenote_main.h"
#include "shell/services.h"

namespace quill::test {
namespace {

using platform::Flavour;
using testing::HasSubstr;

/// Runs a command with the practice notebook as its desktop; messages go to the recording.
class PracticeCommand : public testing::Test {
 protected:
  PracticeCommand() { globals.scripts = shell::BuiltInScripts(); }

  void Run(const std::function<void(shell::NSOneNoteMain&)>& command) {
    platform::practice::PracticeDesktop desktop(world.notebook().Target());
    shell::Services services{desktop, world.pasteboard, screen, screen, clock, strings, explain, log};
    world.OnCommandThread([&] {
      shell::NSOneNoteMain bridge(services, globals);
      command(bridge);
    });
  }

  PracticeWorld world;
  platform::recording::Recording screen;
  platform::FixedClock clock{std::chrono::system_clock::time_point{}};
  shell::StringTable strings;
  shell::Explain explain;
  shell::Log log;
  shell::Globals globals;
};

// The tour's first step: words change, everything around them and the user's clipboard stay.
TEST_F(PracticeCommand, UpperCaseChangesTheSelectionOnly) {
  ASSERT_TRUE(world.SelectText("brown fox"));
  world.pasteboard.Write(Flavour::Text, "the user's own");
  const std::string before = world.VisibleText();
  Run([](shell::NSOneNoteMain& bridge) { bridge.Run(3); });
  EXPECT_THAT(world.VisibleText(), HasSubstr("The quick BROWN FOX jumps"));
  EXPECT_THAT(world.PageHtml(), HasSubstr("color:#b26a00\">BROWN</span> FOX"));
  EXPECT_EQ(world.VisibleText().size(), before.size());
  EXPECT_EQ(world.pasteboard.Read(Flavour::Text).ValueOr(""), "the user's own");
  EXPECT_THAT(screen.messages(), testing::IsEmpty());
}

// The table tools on the practice page: the text is its cells', a new style changes no letter.
TEST_F(PracticeCommand, TableToolsReadAndRestyleTheTable) {
  ASSERT_TRUE(world.OpenPage("Table") && world.SelectBlock("table"));
  const std::string before = world.VisibleText();
  screen.AnswerDialog<shell::Table2TextRequest>(shell::TableTextChoice{tools::TableTextMode::Commas, ""});
  Run([](shell::NSOneNoteMain& bridge) { bridge.Run(17); });
  EXPECT_THAT(world.pasteboard.Read(Flavour::Text).ValueOr(""),
              testing::StartsWith("  Fruit  ,  Colour  ,  Price  \n  Apple  ,  red  ,  1.20  \n"));
  screen.AnswerDialog<shell::TableStyleRequest>(15);
  Run([](shell::NSOneNoteMain& bridge) { bridge.Run(15); });
  EXPECT_EQ(world.VisibleText(), before);
  EXPECT_THAT(world.PageHtml(), HasSubstr("background-color:#4F81BD"));
  EXPECT_THAT(screen.messages(), testing::IsEmpty());
}

// Whatever is on a page, the tools that only look at it find words there, and leave it as it was.
TEST_F(PracticeCommand, ToolsThatLookLeaveEveryPageAlone) {
  for (const char* title :
       {"Welcome", "Headings", "Table", "Lists", "Picture", "Asian text", "Source code"}) {
    SCOPED_TRACE(title);
    ASSERT_TRUE(world.OpenPage(title) && world.SelectPage());
    const std::string before = world.PageHtml();
    Run([](shell::NSOneNoteMain& bridge) { bridge.Run(10); });
    const auto& counts = std::any_cast<const shell::CountRequest&>(screen.windows().back());
    EXPECT_GT(counts.rows.at(0).value, 1) << "paragraphs";
    EXPECT_GT(counts.rows.at(3).value, 5) << "words";
    Run([](shell::NSOneNoteMain& bridge) { bridge.Run(16); });
    const auto& size = std::any_cast<const shell::CountRequest&>(screen.windows().back());
    EXPECT_EQ(size.rows.empty(), std::string_view(title) != "Table");
    EXPECT_EQ(world.PageHtml(), before);
  }
  EXPECT_THAT(screen.messages(), testing::IsEmpty());
}

// Tables, lists and pictures go through the core and come back with their shape.
TEST_F(PracticeCommand, UpperCaseKeepsTheShapeOfEveryPage) {
  for (const char* title : {"Headings", "Table", "Lists", "Asian text", "Source code"}) {
    ASSERT_TRUE(world.OpenPage(title));
    std::string expected = world.VisibleText();
    for (char& c : expected) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    ASSERT_TRUE(world.SelectPage());
    Run([](shell::NSOneNoteMain& bridge) { bridge.Run(3); });
    EXPECT_EQ(world.VisibleText(), expected) << title;
  }
  EXPECT_THAT(screen.messages(), testing::IsEmpty());
}

// Titles are tagged again and again; each time the old tag goes.
TEST_F(PracticeCommand, TitleTagIsExchanged) {
  Run([](shell::NSOneNoteMain& bridge) { bridge.RunTitle(25, 1, 0); });
  const std::string first = world.PageTitle();
  EXPECT_TRUE(first.ends_with("Welcome") && first != "Welcome") << first;
  Run([](shell::NSOneNoteMain& bridge) { bridge.RunTitle(25, 2, 0); });
  EXPECT_TRUE(world.PageTitle().ends_with("Welcome") && world.PageTitle() != first) << world.PageTitle();
  Run([](shell::NSOneNoteMain& bridge) { bridge.RunTitle(25, 0, 0); });
  EXPECT_EQ(world.PageTitle(), "Welcome");
}

}  // namespace
}  // namespace quill::test
