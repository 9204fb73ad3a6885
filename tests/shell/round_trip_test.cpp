#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "base/atomic_file.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/image_sources.h"
#include "shell/temporary_folder.h"
#include "shell/transform_table.h"

namespace quill::shell {
namespace {

using platform::ScriptProblem;
using platform::recording::Contents;
using test::CommandWorld;
using test::Copied;

// A whole command as the other application sees it: keys and pasteboard, in order, the user's own clipboard
// back.
TEST(RoundTrip, CopiesChangesAndPastesOverTheSelection) {
  CommandWorld world(Copied("<p>abc</p>"));
  NSOneNoteMain(world.services, world.globals).Run(3);
  EXPECT_EQ(
      world.recording.transcript(),
      "clear; run copy; read html; clear; write html <p>ABC</p>; run paste-replacing; restore clipboard");
  EXPECT_TRUE(world.recording.pastes().at(0).replaceSelection);
  EXPECT_EQ(world.recording.clipboard().text, "the user's own");
}

// What stood around the fragment must come back with it, byte for byte.
TEST(RoundTrip, KeepsHeadAndTail) {
  CommandWorld world(Copied("<p>a</p>"));
  NSOneNoteMain(world.services, world.globals).Run(3);
  EXPECT_EQ(world.recording.pastes().at(0).contents.html,
            "<html><head></head><body>\r\n<!--StartFragment--><p>A</p><!--EndFragment-->\r\n</body></html>");
}

struct CaseRow {
  std::int64_t command;
  const char* before;
  const char* after;
};

// The four case commands on shapes that pages have: nested tags, CDATA, entities, attributes left alone.
TEST(RoundTrip, ChangesCaseOfTextOnly) {
  const CaseRow rows[] = {
      {2, "<p lang=en-US>ΟΔΟΣ &amp; Café</p>", "<p lang=\"en-US\">οδος &amp; café</p>"},
      {3, "<p>straße<br>b&nbsp;c</p>", "<p>STRASSE<br/>B&nbsp;C</p>"},
      {3, "<!--[if x]>keep<![endif]--><p></p><p>a</p>", "<!--[if x]>keep<![endif]--><p></p><p>A</p>"},
      {4, "<p>Hello <b>W</b></p>", "<p>hELLO <b>w</b></p>"},
      {5, "<p>hello world;again a  b</p>", "<p>Hello World;Again A  b</p>"},
      {5, "<p>well-known CASE</p>", "<p>Well-known Case</p>"},
  };
  for (const CaseRow& row : rows) {
    CommandWorld world(Copied(row.before));
    NSOneNoteMain(world.services, world.globals).Run(row.command);
    EXPECT_EQ(world.PastedFragment(), row.after) << row.command << " " << row.before;
  }
}

// Selections without text, or that cannot be read, must leave the page and the clipboard alone.
TEST(RoundTrip, PastesNothingWhenThereIsNothingToChange) {
  struct Row {
    const char* fragment;
    std::int64_t command;
    const char* message;
  };
  const Row rows[] = {
      {"<p>a & b</p>", 3, "Xml error!"},
      {"<p>a<br/>b<br>c</p>", 3, "Xml error!"},
      {"<img src=x.png />", 2, "Xml error!"},
      {"\r\n<p>\r\n</p>", 3, nullptr},
      {"<img src=\"a.png\">", 5, nullptr},
      {"<p>a</p>", 0, nullptr},
      {"<p>a</p>", -7, nullptr},
      {"<p>a</p>", 999, nullptr},
  };
  for (const Row& row : rows) {
    CommandWorld world(Copied(row.fragment));
    NSOneNoteMain(world.services, world.globals).Run(row.command);
    EXPECT_TRUE(world.recording.pastes().empty()) << row.fragment;
    EXPECT_EQ(world.recording.clipboard().text, "the user's own") << row.fragment;
    ASSERT_EQ(world.recording.messages().size(), row.message == nullptr ? 0u : 1u) << row.fragment;
    if (row.message != nullptr) {
      EXPECT_EQ(world.recording.messages()[0], row.message);
    }
  }
}

// A copy without fragment markers is an empty fragment, not the whole document.
TEST(RoundTrip, SeesAnEmptyFragmentWithoutMarkers) {
  CommandWorld world(Contents{"<p>abc</p>", "abc", std::nullopt});
  NSOneNoteMain bridge(world.services, world.globals);
  bridge.Run(3);
  EXPECT_EQ(bridge.OperationResult(), 0);
  EXPECT_TRUE(world.recording.pastes().empty());
  EXPECT_EQ(world.globals.FragmentHead, "");
}

// A slow application gets three chances; a fourth would keep the user waiting.
TEST(Copy, TriesThreeTimes) {
  CommandWorld late(Copied("<p>a</p>"));
  late.recording.LoseCopies(2);
  NSOneNoteMain(late.services, late.globals).Run(3);
  EXPECT_EQ(late.PastedFragment(), "<p>A</p>");

  CommandWorld never;
  NSOneNoteMain(never.services, never.globals).Run(3);
  EXPECT_EQ(never.recording.transcript(), "clear; run copy; clear; run copy; clear; run copy; message " +
                                              std::string(never.strings.Text("msgLoadTextError")) +
                                              "; restore clipboard");
}

// Keys that went astray must not be sent again, and the user must learn the reason.
TEST(Copy, StopsAtAProblemThatAnotherTryCannotMend) {
  for (const ScriptProblem problem :
       {ScriptProblem::TargetMissing, ScriptProblem::FocusLost, ScriptProblem::ModifierHeld,
        ScriptProblem::TargetClosed, ScriptProblem::NotPermitted}) {
    CommandWorld world(Copied("<p>a</p>"));
    world.recording.FailScripts({problem});
    NSOneNoteMain(world.services, world.globals).Run(3);
    ASSERT_EQ(world.recording.messages().size(), 1u);
    EXPECT_EQ(world.recording.messages()[0],
              world.strings.Format(platform::ScriptProblemKey(problem), {"recorded"}));
    EXPECT_TRUE(world.strings.Has(platform::ScriptProblemKey(problem)));
    EXPECT_TRUE(world.recording.pastes().empty());
  }
}

// When the paste cannot be typed the user is told, and the clipboard is still given back.
TEST(Paste, TellsWhenTheKeysCouldNotBeSent) {
  CommandWorld world(Copied("<p>a</p>"));
  world.recording.FailScripts({ScriptProblem::None, ScriptProblem::FocusLost});
  NSOneNoteMain(world.services, world.globals).Run(3);
  EXPECT_EQ(world.recording.messages(),
            std::vector<std::string>{std::string(world.strings.Text("errScriptFocusLost"))});
  EXPECT_EQ(world.recording.clipboard().text, "the user's own");
}

// The plain text stays on the clipboard with ordinary blanks; the page is not touched.
TEST(CopyPlainText, LeavesTextWithOrdinaryBlanks) {
  CommandWorld world(Copied("<p>a&nbsp;b</p>", "a\u00A0b \u00A0"));
  NSOneNoteMain(world.services, world.globals).RunOther(24, 0, 0);
  EXPECT_EQ(world.recording.clipboard().text, "a b  ");
  EXPECT_EQ(world.recording.clipboard().html, std::nullopt);
  EXPECT_TRUE(world.recording.pastes().empty());

  CommandWorld nothing;
  NSOneNoteMain(nothing.services, nothing.globals).RunOther(24, 0, 0);
  EXPECT_EQ(nothing.recording.clipboard().text, "the user's own");
}

struct TitleRow {
  const char* before;
  std::int64_t tag;
  const char* after;
};

// Tags are exchanged, not piled up; only the first one that leads goes.
TEST(PageTitleTag, ExchangesTheLeadingTag) {
  const TitleRow rows[] = {
      {"☑ ☐ Shopping", 3, "♥ ☐ Shopping"}, {"Plan ☑", 1, "☐ Plan ☑"},
      {"  ☐ a ☐ b\t", 2, "☑ a  b"},        {"🎫 Trip", 0, "Trip"},
      {"☐", 0, "pastes nothing"},          {"\u3000Plan\u00A0", 15, "⭐ Plan"},
  };
  for (const TitleRow& row : rows) {
    CommandWorld world;
    world.recording.SetPageTitle(row.before);
    NSOneNoteMain(world.services, world.globals).RunTitle(25, row.tag, 0);
    const auto& pastes = world.recording.pastes();
    EXPECT_EQ(pastes.empty() ? "pastes nothing" : *pastes[0].contents.text, row.after) << row.before;
    EXPECT_TRUE(pastes.empty() || pastes[0].replaceSelection);
  }
}

// The caret goes to the title before anything is copied; an index from a broken caller presses no key.
TEST(PageTitleTag, PressesTheTitleKeyFirst) {
  CommandWorld world;
  world.recording.SetPageTitle("Plan");
  NSOneNoteMain(world.services, world.globals).RunTitle(25, 1, 0);
  EXPECT_EQ(world.recording.transcript(),
            "run command+shift+T; clear; run copy; read text; clear; write text ☐ Plan; run paste-replacing; "
            "restore clipboard");
  CommandWorld wrong;
  NSOneNoteMain(wrong.services, wrong.globals).RunTitle(25, 16, 0);
  EXPECT_EQ(wrong.recording.transcript(), "");
}

// The head's style sheet is text too and must not land in the title.
TEST(SetToPageTitle, TakesTheSelectionWithoutItsHead) {
  CommandWorld world(Contents{
      "<html><style>p{}</style><!--StartFragment--><b>My</b> page<!--EndFragment--></html>", "", {}});
  NSOneNoteMain(world.services, world.globals).SetToPageTitle();
  EXPECT_EQ(world.PastedFragment(), "My page");
}

// Inserted content goes in at the caret, so that a character before it survives.
TEST(Insert, PastesAtTheCaret) {
  CommandWorld world;
  world.globals.settings.DateFormat = "'day'";
  world.globals.settings.TimeFormat = "'time'";
  const char* expected[] = {"day time", "day", "time"};
  for (std::int64_t kind = 0; kind < 3; ++kind) {
    CommandWorld one;
    one.globals.settings = world.globals.settings;
    NSOneNoteMain(one.services, one.globals).RunInsert(20, kind, 0, "");
    EXPECT_EQ(one.PastedFragment(), expected[kind]);
    EXPECT_FALSE(one.recording.pastes()[0].replaceSelection);
  }
  CommandWorld other;
  NSOneNoteMain(other.services, other.globals).RunInsert(19, 0, 0, "x");
  EXPECT_EQ(other.recording.transcript(), "");
}

// A new page gets the journal title; if the page cannot be made nothing is typed into the old one.
TEST(NewPage, InsertsTheJournalTitle) {
  CommandWorld world;
  world.globals.settings.JournalDayFormat = "Journal ['on' 'day'] end";
  NSOneNoteMain(world.services, world.globals).NewPage();
  EXPECT_EQ(world.PastedFragment(), "Journal on day end");
  CommandWorld failing;
  failing.recording.FailScripts({ScriptProblem::TargetMissing});
  NSOneNoteMain(failing.services, failing.globals).NewPage();
  EXPECT_TRUE(failing.recording.pastes().empty());
}

class Exports : public testing::Test {
 protected:
  void SetUp() override {
    m_folder = std::filesystem::temp_directory_path() / ("quill-exports-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_folder);
  }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  std::string Export(std::int64_t command, const std::string& fragment, const std::string& name) {
    CommandWorld world(Copied(fragment));
    world.recording.AnswerSavePanel(m_folder / name);
    NSOneNoteMain(world.services, world.globals).Run(command);
    EXPECT_TRUE(world.recording.pastes().empty());
    return ReadFile(m_folder / name).ValueOr("not written");
  }

  std::filesystem::path m_folder;
};

// Support asks for these files: they must hold what was copied, also when it is not well-formed.
TEST_F(Exports, WriteWhatWasCopied) {
  EXPECT_EQ(Export(1, "<p>a & b", "d.bin"), "<p>a & b");
  EXPECT_EQ(Export(10001, "<p>a & b", "l.dat"), "<html><head></head><body>\r\n<p>a & b\r\n</body></html>");
  EXPECT_EQ(Export(6, "<p>a<br>b</p>", "p.htm"),
            "<html><head></head><body>\r\n<p>a<br/>b</p>\r\n</body></html>");
}

// A saved page must still show its pictures, and must not carry other files away.
TEST_F(Exports, SaveAsHtmlTakesPicturesAlong) {
  const std::string png("\x89PNG\r\n\x1a\nrest");
  std::ofstream(m_folder / "my pic.png") << png;
  std::ofstream(m_folder / "secret.txt") << "not a picture";
  const std::string folder = m_folder.string();
  const std::string html = Export(
      6,
      "<p><img src=\"file://" + folder + "/my%20pic.png\"><img src=\"file://" + folder + "/secret.txt\"></p>",
      "page.htm");
  EXPECT_NE(html.find("src=\"page_files/my pic.png\""), std::string::npos) << html;
  EXPECT_NE(html.find("src=\"file://" + folder + "/secret.txt\""), std::string::npos) << html;
  EXPECT_EQ(ReadFile(m_folder / "page_files" / "my pic.png").ValueOr(""), png);
  EXPECT_FALSE(std::filesystem::exists(m_folder / "page_files" / "secret.txt"));
}

// A template carries its pictures inside; what is no picture, or is not there, keeps its source.
TEST_F(Exports, PicturesGoIntoTheirSources) {
  std::ofstream(m_folder / "a.PNG") << std::string("\x89PNG", 4);
  std::ofstream(m_folder / "secret.png") << "not a picture";
  const std::string folder = "file://" + m_folder.string();
  auto document = content::WorkingDocument::Parse(
      "<quillText><p><img src=\"" + folder + "/a.PNG\"/></p><img src=\"" + folder +
      "/secret.png\"/><img src=\"" + folder + "/gone.png\"/></quillText>");
  ASSERT_TRUE(document.ok());
  std::vector<std::string> problems;
  ConverImages2Base64(document->Root(), [&](std::string_view problem) { problems.emplace_back(problem); });
  EXPECT_EQ(problems.size(), 2u);
  const std::string xml = document->Xml();
  EXPECT_NE(xml.find("src=\"data:image/PNG;base64,iVBORw==\""), std::string::npos) << xml;
  EXPECT_NE(xml.find("secret.png"), std::string::npos);
}

// A cancelled panel writes nothing; a file that cannot be written is told.
TEST_F(Exports, CancelledAndFailedSaves) {
  CommandWorld cancelled(Copied("<p>a</p>"));
  NSOneNoteMain(cancelled.services, cancelled.globals).Run(6);
  EXPECT_EQ(cancelled.recording.savePanels().at(0).extension, "htm");
  EXPECT_TRUE(cancelled.recording.messages().empty());

  CommandWorld failing(Copied("<p>a</p>"));
  failing.recording.AnswerSavePanel(m_folder / "no such folder" / "p.htm");
  NSOneNoteMain(failing.services, failing.globals).Run(6);
  ASSERT_EQ(failing.recording.messages().size(), 1u);
  EXPECT_NE(failing.recording.messages()[0].find("p.htm"), std::string::npos);
}

// The first table of the selection, as told; a selection without one says so and asks for no file.
TEST(SaveTableAsCSV, WritesTheFirstTable) {
  const test::TemporaryFolder folder;
  CommandWorld world(Copied("<p>a</p><table><tr><td>x, y</td><td>\"q\"</td></tr></table><table></table>"));
  world.recording.AnswerSavePanel(folder.path() / "t.csv");
  NSOneNoteMain(world.services, world.globals).Run(19);
  EXPECT_EQ(ReadFile(folder.path() / "t.csv").ValueOr("no file"), "\"x, y\",\"\"\"q\"\"\"\n");
  EXPECT_TRUE(world.recording.pastes().empty());

  CommandWorld without(Copied("<p>a</p>"));
  NSOneNoteMain(without.services, without.globals).Run(19);
  EXPECT_EQ(without.recording.messages().at(0), without.strings.Text("msgLoadTableError"));
  EXPECT_TRUE(without.recording.savePanels().empty());
}

// Months are counted from the first, so that the month after 31 January is February; the week begins as set.
TEST(Calendar, IsOfTheMonthAroundTheClock) {
  CommandWorld world;
  world.clock.Set(std::chrono::sys_days(std::chrono::year(2026) / 1 / 31) + std::chrono::hours(12));
  for (const auto& [action, heading] : {std::pair("MenuItemInsertCalendarThisMonth", "2026 - 1"),
                                        std::pair("MenuItemInsertCalendarNextMonth", "2026 - 2"),
                                        std::pair("MenuItemInsertCalendarPrevMonth", "2025 - 12")}) {
    const CommandRow* row = FindCommand(action);
    CommandContext context{world.services, world.globals, row->argument};
    row->handler(context, *row);
    EXPECT_NE(world.recording.pastes().back().contents.html->find(heading), std::string::npos) << action;
  }
  const std::string sunday = *world.recording.pastes().back().contents.html;
  world.globals.settings.CalendarStartWithMonday = true;
  NSOneNoteMain(world.services, world.globals).RunInsert(21, 2025, 12, "");
  EXPECT_NE(*world.recording.pastes().back().contents.html, sunday);
}

// Word gets the selection that is still on the clipboard; without Word the user is told.
TEST(SaveAsWordDocument, NeedsWord) {
  CommandWorld without(Copied("<p>a</p>"));
  NSOneNoteMain(without.services, without.globals).Run(7);
  EXPECT_EQ(without.recording.messages().at(0), "Please install Microsoft Word before using this feature!");

  CommandWorld with(Copied("<p>a</p>"));
  with.recording.Install("/Applications/Microsoft Word.app");
  NSOneNoteMain(with.services, with.globals).Run(7);
  EXPECT_EQ(with.recording.transcript(),
            "clear; run copy; read html; run command+n command+v; restore clipboard");
  EXPECT_EQ(with.recording.pastes().at(0).contents.html, Copied("<p>a</p>").html);
}

// An action without an answer would do nothing, silently.
TEST(CommandTable, LeavesNoActionWithoutAnAnswer) {
  for (const CommandRow& row : CommandTable()) {
    EXPECT_NE(row.handler == nullptr, row.window == nullptr) << row.action;
  }
}

// Every action has a title in the table of texts, a name of its own, and a hot key of its own if any.
TEST(CommandTable, RowsAreConsistent) {
  const StringTable strings;
  std::set<std::string_view> names;
  std::string hotKeys;
  for (const CommandRow& row : CommandTable()) {
    EXPECT_TRUE(strings.Has(row.titleKey)) << row.titleKey;
    EXPECT_TRUE(names.insert(row.action).second) << row.action;
    EXPECT_EQ(FindCommand(row.action), &row);
    if (row.hotKey != 0) hotKeys += row.hotKey;
    if (row.handler == FindCommand("UpperCase")->handler) {
      EXPECT_NE(FindTransform(row.number), nullptr) << row.action;
    }
  }
  EXPECT_EQ(hotKeys, "DTLCP");
}

// A mistyped name must lead to the right one.
TEST(CommandTable, OffersNearestNames) {
  EXPECT_EQ(FindCommand("menuitemuppercaseclick:")->number, 3);
  EXPECT_EQ(FindCommand("upper-case")->number, 3);
  EXPECT_EQ(FindCommand("uppercas"), nullptr);
  EXPECT_EQ(NearestActions("uppercas").at(0), "MenuItemUpperCaseClick");
  EXPECT_EQ(NearestActions("tabletotext").at(0), "MenuItemTable2TextClick");
  EXPECT_EQ(NearestActions(std::string(100000, 'x')).size(), 3u);
}

}  // namespace
}  // namespace quill::shell
