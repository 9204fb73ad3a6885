#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/command_world.h"
#include "shell/content_requests.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

using platform::recording::Contents;
using test::CommandWorld;
using test::Copied;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int64_t kSlides = 9, kWordCount = 10, kTableStyle = 15, kTableInformation = 16,
                       kTable2Text = 17, kText2Table = 18;
constexpr const char* kTable =
    "<table><tr><td style=\"a:b\">1</td><td style=\"a:b\">2</td></tr><tr><td>3</td><td>4</td></tr></table>";

/// A world with a settings file of its own.
class TableCommands : public testing::Test {
 protected:
  std::unique_ptr<CommandWorld> World(const Contents& selection) {
    auto world = std::make_unique<CommandWorld>(selection);
    world->globals.folders.SettingsFile = folder.path() / "quillapp.plist";
    LoadSettings(world->globals);
    return world;
  }
  static void Run(CommandWorld& world, std::int64_t number) {
    NSOneNoteMain(world.services, world.globals).Run(number);
  }
  /// What the next start finds in the file.
  Settings Saved() {
    Globals globals;
    globals.folders.SettingsFile = folder.path() / "quillapp.plist";
    LoadSettings(globals);
    return globals.settings;
  }

  test::TemporaryFolder folder;
};

// The style that was chosen is on the page and chosen already when the dialog opens again.
TEST_F(TableCommands, RestyleAndRemember) {
  const auto world = World(Copied(kTable));
  world->recording.AnswerDialog<TableStyleRequest>(21);
  Run(*world, kTableStyle);
  EXPECT_THAT(world->PastedFragment(), HasSubstr("<td style=\"background-color:black\">1</td>"));
  EXPECT_TRUE(world->recording.pastes().at(0).replaceSelection);
  const auto& request = std::any_cast<const TableStyleRequest&>(world->recording.windows().at(0));
  EXPECT_EQ(request.selected, 1);
  EXPECT_STREQ(request.table->document_element().name(), "table");
  EXPECT_EQ(Saved().TableStyle_SelectIndex, 21);
}

// Every table behind a refused one is offered; nothing is pasted when all are refused.
TEST_F(TableCommands, ARefusalGoesOnToTheNextTable) {
  const std::string two = std::string("<div>") + kTable + "</div><div>" + kTable + "</div>";
  const auto refused = World(Copied(two));
  Run(*refused, kTableStyle);
  EXPECT_EQ(refused->recording.windows().size(), 2u);
  EXPECT_TRUE(refused->recording.pastes().empty());
  EXPECT_TRUE(refused->recording.messages().empty());
  const auto second = World(Copied(two));
  second->recording.AnswerDialog<TableStyleRequest>(std::nullopt);
  second->recording.AnswerDialog<TableStyleRequest>(14);
  Run(*second, kTableStyle);
  EXPECT_THAT(second->PastedFragment(), HasSubstr(std::string("<div>") + kTable + "</div>"));
  EXPECT_THAT(second->PastedFragment(), HasSubstr("background-color:black"));
}

// The commands on a table say so when there is none, and leave page and clipboard alone.
TEST_F(TableCommands, TellThatThereIsNoTable) {
  for (const std::int64_t number : {kTableStyle, kTable2Text}) {
    const auto world = World(Copied("<p>no table</p>"));
    Run(*world, number);
    EXPECT_THAT(world->recording.messages(), ElementsAre(world->strings.Text("msgLoadTableError")));
    EXPECT_TRUE(world->recording.windows().empty());
    EXPECT_EQ(world->recording.clipboard().text, "the user's own");
  }
}

// The text is what the user goes on with: it stays on the clipboard, the page stays as it is.
TEST_F(TableCommands, TableTextStaysOnTheClipboard) {
  const auto world = World(Copied(kTable));
  world->recording.AnswerDialog<Table2TextRequest>(TableTextChoice{tools::TableTextMode::Other, " | "});
  Run(*world, kTable2Text);
  EXPECT_EQ(world->recording.clipboard().text, "1 | 2\n3 | 4\n");
  EXPECT_TRUE(world->recording.pastes().empty());
  EXPECT_EQ(Saved().Table2Text_Index, 4);
  EXPECT_EQ(Saved().Table2Text_Seperator, " | ");
}

// A table of the plain text beside the HTML, pasted and not left behind; a refused dialog changes nothing.
TEST_F(TableCommands, TextBecomesATable) {
  const auto world = World(Copied("<p>a,b</p><p>c</p>", "\n a,b\nc \n"));
  world->recording.AnswerDialog<Text2TableRequest>(
      TextTableChoice{tools::TextTableMode::Commas, "-", "", ""});
  Run(*world, kText2Table);
  EXPECT_THAT(world->PastedFragment(), HasSubstr("<tr><td>a</td><td>b</td></tr><tr><td>c</td></tr>"));
  EXPECT_EQ(world->recording.clipboard().text, "the user's own");
  EXPECT_EQ(std::any_cast<const Text2TableRequest&>(world->recording.windows().at(0)).text, "a,b\nc");
  EXPECT_EQ(Saved().Text2Table_Index, 2);

  const auto refused = World(Copied("<p>a</p>", "a"));
  Run(*refused, kText2Table);
  EXPECT_TRUE(refused->recording.pastes().empty());
  EXPECT_EQ(refused->recording.clipboard().text, "the user's own");
}

// A size nobody can want becomes one that the page survives, and the user hears of it.
TEST_F(TableCommands, AnAbsurdSizeIsClamped) {
  const auto world = World(Copied("<p>a</p>", "a\nb"));
  world->recording.AnswerDialog<Text2TableRequest>(
      TextTableChoice{tools::TextTableMode::Paragraphs, "", "3", "9999999999"});
  Run(*world, kText2Table);
  EXPECT_EQ(world->recording.pastes().size(), 1u);
  EXPECT_THAT(world->recording.messages(), ElementsAre(HasSubstr("1000000")));
}

// The figures are those of the selection, in a window that touches nothing.
TEST_F(TableCommands, CountsAreShown) {
  const auto rows = [&](std::int64_t number, const std::string& html) {
    const auto world = World(Copied(html));
    Run(*world, number);
    EXPECT_TRUE(world->recording.pastes().empty());
    std::string text;
    for (const auto& row : std::any_cast<const CountRequest&>(world->recording.windows().at(0)).rows)
      text += std::string(row.key) + "=" + std::to_string(row.value) + " ";
    return text;
  };
  EXPECT_THAT(rows(kWordCount, "<p>Hello, world</p>"), HasSubstr("Character_With_Spaces=12 Words=2 "));
  EXPECT_EQ(rows(kTableInformation, kTable), "Columns=2 Rows=2 ");
  EXPECT_EQ(rows(kTableInformation, "<p>none</p>"), "");
}

// What was chosen cannot always be kept; the work is done all the same, and the user is told.
TEST_F(TableCommands, TellThatAChoiceCannotBeKept) {
  const auto world = World(Copied(kTable));
  world->globals.folders.SettingsFile = folder.path() / "no" / "such" / "folder" / "quillapp.plist";
  folder.Write("no", "a file where the folder should be");
  world->recording.AnswerDialog<TableStyleRequest>(2);
  Run(*world, kTableStyle);
  EXPECT_EQ(world->recording.pastes().size(), 1u);
  EXPECT_EQ(world->recording.messages().size(), 1u);
}

// Slides need the program that makes them and a heading to begin with; then its macro runs on the selection.
TEST_F(TableCommands, SlidesNeedPowerPointAndAHeading) {
  const auto run = [&](const char* html, bool installed) {
    auto world = World(Copied(html));
    if (installed) world->recording.Install("/Applications/Microsoft PowerPoint.app");
    Run(*world, kSlides);
    EXPECT_EQ(world->recording.clipboard().text, "the user's own");
    return world->recording.transcript();
  };
  const std::string copy = "clear; run copy; read html; ";
  EXPECT_EQ(
      run("<h1>a</h1>", false),
      copy + "message Please install Microsoft PowerPoint before using this feature!; restore clipboard");
  EXPECT_EQ(run("<h2>a</h2>", true), copy + "message No heading 1 in selection!; restore clipboard");
  EXPECT_THAT(run("<table><tr><td><h1>a</h1></td></tr></table>", true), HasSubstr(copy + "run "));
}

}  // namespace
}  // namespace quill::shell
