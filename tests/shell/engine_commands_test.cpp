#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/posix_process_runner.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/engine_requests.h"
#include "shell/equation_request.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

using test::CommandWorld;
using test::Copied;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int64_t kPhonetics = 10002;

class EngineCommands : public testing::Test {
 protected:
  std::unique_ptr<CommandWorld> World(const platform::recording::Contents& selection = {}) {
    auto world = std::make_unique<CommandWorld>(selection);
    world->globals.folders.SettingsFile = folder.path() / "quillapp.plist";
    world->globals.folders.TmpFolder = folder.path();
    LoadSettings(world->globals);
    return world;
  }
  static void RunAction(CommandWorld& world, const char* action) {
    CommandContext context{world.services, world.globals};
    const CommandRow* row = FindCommand(action);
    row->handler(context, *row);
  }
  Settings Saved() {
    Globals globals;
    globals.folders.SettingsFile = folder.path() / "quillapp.plist";
    LoadSettings(globals);
    return globals.settings;
  }

  test::TemporaryFolder folder;
};

// The look of the code is kept for the next time, also when the run failed and nothing is inserted.
TEST_F(EngineCommands, HighlightInsertsAndRemembers) {
  tools::HighlightRequest look;
  look.language = "Python";
  look.theme = "Emacs";
  look.fontSize = "14";
  look.frame = {false, true, "#ABCDEF"};
  const auto world = World();
  world->recording.AnswerDialog<SyntaxHighlightRequest>(SyntaxChoice{look, "<pre>x</pre>"});
  RunAction(*world, "SyntaxHighlight");
  EXPECT_EQ(world->recording.pastes().at(0).contents.html, "<pre>x</pre>");
  EXPECT_EQ(Saved().Syntax_Lang + Saved().Syntax_Theme + Saved().Syntax_FontSize + Saved().Syntax_Shaping,
            "PythonEmacs14#ABCDEF");
  EXPECT_TRUE(Saved().Syntax_Bold && !Saved().Syntax_FrameUp);

  look.language = "Perl";
  const auto failed = World();
  failed->recording.AnswerDialog<SyntaxHighlightRequest>(SyntaxChoice{look, ""});
  RunAction(*failed, "SyntaxHighlight");
  EXPECT_TRUE(failed->recording.pastes().empty());
  EXPECT_EQ(Saved().Syntax_Lang, "Perl");
}

// What the dialog is given really runs the highlighter, and says so when there is none.
TEST_F(EngineCommands, TheDialogCanRunTheHighlighter) {
  for (const bool hasRunner : {true, false}) {
    const auto world = World();
    if (hasRunner) world->services.engines.processes = std::make_shared<platform::PosixProcessRunner>();
    RunAction(*world, "SyntaxHighlight");
    const auto& request = std::any_cast<const SyntaxHighlightRequest&>(world->recording.windows().at(0));
    tools::HighlightRequest wanted = request.remembered;
    wanted.code = "int main() { return 0; }";
    wanted.language = "C and C++";
    for (const HighlightCode& highlight : {request.highlight, request.preview}) {
      const auto html = highlight(wanted, [] { return false; });
      ASSERT_EQ(html.ok(), hasRunner);
      EXPECT_THAT(html.ValueOr("main"), HasSubstr("main"));
    }
  }
}

// An equation goes in as it came from the window, and its formula can be chosen again.
TEST_F(EngineCommands, EquationInsertsAndRemembers) {
  const auto world = World();
  world->recording.AnswerDialog<EquationRequest>(
      EquationChoice{"<!--[if mathML]>m<![endif]-->", "$$a|b$$", false});
  RunAction(*world, "LaTeXEquation");
  EXPECT_EQ(world->PastedFragment(), "<!--[if mathML]>m<![endif]-->");
  const auto again = World();
  RunAction(*again, "LaTeXEquation");
  EXPECT_THAT(std::any_cast<const EquationRequest&>(again->recording.windows().at(0)).recent,
              ElementsAre("$$a|b$$"));
  EXPECT_TRUE(again->recording.pastes().empty());
}

// The transcription stands behind the first word of the selection, and only there.
TEST_F(EngineCommands, PhoneticsFollowTheFirstWord) {
  const auto world = World(Copied("\r\n<p>water</p><p>fire</p>"));
  world->recording.AnswerDialog<PhoneticsRequest>(PhoneticChoice{"German", "x<y"});
  NSOneNoteMain(world->services, world->globals).Run(kPhonetics);
  EXPECT_EQ(std::any_cast<const PhoneticsRequest&>(world->recording.windows().at(0)).word, "water");
  EXPECT_THAT(world->PastedFragment(),
              HasSubstr("<p>water<span style=\"font-family:Calibri;\"> (x&lt;y) </span></p><p>fire</p>"));
  EXPECT_EQ(Saved().Phonetics_Language, "German");
}

// Given up, without a word, or unreadable: the page stays, and only what went wrong is told.
TEST_F(EngineCommands, PhoneticsLeaveThePageAlone) {
  const auto gaveUp = World(Copied("<p>water</p>"));
  gaveUp->recording.AnswerDialog<PhoneticsRequest>(PhoneticChoice{"French", ""});
  NSOneNoteMain(gaveUp->services, gaveUp->globals).Run(kPhonetics);
  EXPECT_EQ(Saved().Phonetics_Language, "French");
  const auto empty = World(Copied("<p> </p>"));
  NSOneNoteMain(empty->services, empty->globals).Run(kPhonetics);
  EXPECT_TRUE(empty->recording.windows().empty());
  const auto broken = World(Copied("<p>a</i>"));
  NSOneNoteMain(broken->services, broken->globals).Run(kPhonetics);
  EXPECT_THAT(broken->recording.messages(), ElementsAre("Xml error!"));
  for (const auto& world : {&gaveUp, &empty, &broken}) EXPECT_TRUE((*world)->recording.pastes().empty());
}

}  // namespace
}  // namespace quill::shell
