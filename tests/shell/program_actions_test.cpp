#include "shell/program_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/menu_state.h"
#include "shell/temporary_folder.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

using test::CommandWorld;
using test::Copied;
using testing::HasSubstr;

void Do(CommandWorld& world, std::string_view action) {
  const CommandRow* row = FindCommand(action);
  ASSERT_NE(row, nullptr) << action;
  CommandContext context{world.services, world.globals, row->argument};
  row->handler(context, *row);
}

// The check mark and the calendars read the same setting; a save that fails must not leave them differing
// from the file.
TEST(StartWithMonday, FlipsAndSavesOrSaysWhyNot) {
  const test::TemporaryFolder folder;
  CommandWorld world;
  world.globals.folders.SettingsFile = folder.path() / "quillapp.plist";
  Do(world, "StartWithMonday");
  EXPECT_TRUE(world.globals.settings.CalendarStartWithMonday);
  LoadSettings(world.globals);
  EXPECT_TRUE(world.globals.settings.CalendarStartWithMonday) << "not in the file";

  world.globals.folders.SettingsFile = folder.path() / "missing" / "quillapp.plist";
  Do(world, "StartWithMonday");
  EXPECT_TRUE(world.globals.settings.CalendarStartWithMonday);
  EXPECT_THAT(world.recording.messages().at(0), HasSubstr("could not be saved"));
}

// The line is the program's own picture: a whole PNG file, pasted at the caret, the user's clipboard back.
TEST(InsertHorizontalLine, PastesAPictureAtTheCaret) {
  CommandWorld world;
  Do(world, "InsertHorizontalLine");
  ASSERT_EQ(world.recording.pastes().size(), 1u);
  const std::string png = world.recording.pastes()[0].contents.png.value_or("");
  EXPECT_TRUE(png.starts_with("\x89PNG\r\n\x1A\n"));
  EXPECT_THAT(png, HasSubstr("IEND"));
  EXPECT_FALSE(world.recording.pastes()[0].replaceSelection);
  EXPECT_EQ(world.recording.clipboard().text, "the user's own");
}

// Each of these hands one thing to the system, and says so when the system refuses.
TEST(ProgramActions, OpenWhatTheyName) {
  CommandWorld world;
  world.globals.folders.roots.userLibrary = "/home/u/Library";
  world.globals.endpoints.webApp = "https://one.example";
  Do(world, "CacheFolder");
  Do(world, "ImportNotebook");
  const std::string hint(world.strings.Text("msgImportNotebook"));
  EXPECT_EQ(world.recording.transcript(),
            "reveal /home/u/Library/Containers/com.microsoft.onenote.mac/Data/Library/Application "
            "Support/Microsoft User Data/OneNote; message " +
                hint + "; open url https://one.example/notebooks/exportimport?toImport=true");
  world.recording.RefuseToOpen("no browser");
  Do(world, "ImportNotebook");
  EXPECT_THAT(world.recording.messages().back(), HasSubstr("no browser"));
}

// Without OneNote the user is told; with it, it comes to the front, or the reason why not is told.
TEST(RunOneNote, ActivatesWhatIsThere) {
  CommandWorld world;
  Do(world, "RunOneNote");
  EXPECT_EQ(world.recording.messages().at(0), world.strings.Text("errorNotFoundOneNote"));
  world.recording.Install("/Applications/Microsoft OneNote.app");
  world.recording.NameScript(world.globals.scripts.ScriptActivate, "activate");
  Do(world, "RunOneNote");
  EXPECT_THAT(world.recording.transcript(), testing::EndsWith("; run activate"));
  world.recording.FailScripts({platform::ScriptProblem::NotPermitted});
  Do(world, "RunOneNote");
  EXPECT_EQ(world.recording.messages().back(), world.strings.Text("errScriptNotPermitted"));
}

// The two test windows are for finding out what another program really copied: nothing may be changed on the
// way.
TEST(TestItems, ShowWhatWasCopiedAsItIs) {
  CommandWorld world(Copied("<p>a\r\n\xC2\xA0</p>", "a"));
  Do(world, "TestCopyFromOneNote");
  Do(world, "TestCopyFromClipboard");
  ASSERT_EQ(world.recording.windows().size(), 2u);
  EXPECT_EQ(std::any_cast<TextRequest>(world.recording.windows()[0]).text,
            *Copied("<p>a\r\n\xC2\xA0</p>").html);
  EXPECT_EQ(std::any_cast<TextRequest>(world.recording.windows()[1]).text,
            "Clipboard types:\ntext\n\n\n\nthe user's own");
}

// A greyed entry must say what to do, the most helpful reason first; what can run must not be greyed.
TEST(WhyNotNow, NamesTheFirstThingThatIsMissing) {
  MenuState state;
  EXPECT_EQ(WhyNotNow(*FindCommand("UpperCase"), state), "") << "nobody has looked yet";
  state = {false, false, false, false, {}, {}};
  EXPECT_EQ(WhyNotNow(*FindCommand("UpperCase"), state), "strNeedsOneNote");
  EXPECT_EQ(WhyNotNow(*FindCommand("About"), state), "");
  state.oneNoteRunning = true;
  EXPECT_EQ(WhyNotNow(*FindCommand("UpperCase"), state), "");
  EXPECT_EQ(WhyNotNow(*FindCommand("SaveAsWordDocument"), state), "strNeedsWord");
  state.wordInstalled = true;
  EXPECT_EQ(WhyNotNow(*FindCommand("SaveAsWordDocument"), state), "");
}

// The menu state is what the desktop and the settings say at that moment.
TEST(MenuState, LooksAtDesktopAndSettings) {
  CommandWorld world;
  world.recording.SetOneNoteRunning(false);
  MenuState state = LookAtMenuState({"recording", &world.recording, &world.recording}, world.globals);
  EXPECT_FALSE(state.oneNoteRunning || state.signedIn || state.wordInstalled || state.startWithMonday);
  world.recording.SetOneNoteRunning(true);
  world.recording.Install("/Applications/Microsoft Word.app");
  world.globals.settings.OnlineOneNoteRefreshToken = "r";
  world.globals.settings.CalendarStartWithMonday = true;
  state = LookAtMenuState({"recording", &world.recording, &world.recording}, world.globals);
  EXPECT_TRUE(state.oneNoteRunning && state.signedIn && state.wordInstalled && state.startWithMonday);
}

}  // namespace
}  // namespace quill::shell
