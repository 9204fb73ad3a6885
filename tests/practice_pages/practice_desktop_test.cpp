#include "platform/practice/practice_desktop.h"

#include <gtest/gtest.h>

#include "shell/script_table.h"

namespace quill::platform::practice {
namespace {

/// Writes down what a script does to it.
class RecordedTarget final : public PracticeTarget {
 public:
  bool IsOpen() override { return open; }
  ScriptProblem Show() override { return Note("show"); }
  ScriptProblem Press(const Keys& keys) override {
    const script::Modifiers& m = keys.modifiers;
    return Note((m.command ? "command+" : "") + std::string(m.control ? "control+" : "") +
                (m.option ? "option+" : "") + (m.shift ? "shift+" : "") +
                (keys.text.empty() ? std::to_string(keys.keyCode) : "'" + keys.text + "'"));
  }
  ScriptProblem OpenLink(std::string_view link) override { return Note("open " + std::string(link)); }

  bool open = false;
  std::string seen;
  std::string failAt;
  ScriptProblem problem = ScriptProblem::None;

 private:
  ScriptProblem Note(const std::string& what) {
    seen += (seen.empty() ? "" : "; ") + what;
    return what == failAt ? problem : ScriptProblem::None;
  }
};

// Every built-in script, as the notebook sees it.
TEST(PracticeDesktop, PerformsTheBuiltInScripts) {
  const shell::ScriptTable scripts = shell::BuiltInScripts();
  const std::pair<std::string, std::string> kCases[] = {
      {scripts.ScriptActivate, "show; show"},
      {scripts.ScriptCopy, "show; show; command+'c'"},
      {scripts.ScriptPasteReplacing, "show; show; 51; command+'v'"},
      {scripts.ScriptPasteAtCaret, "show; show; ' '; 51; command+'v'"},
      {scripts.ScriptCopyPageLink, "show; show; command+control+'p'"},
      {shell::FillKeystroke(scripts, "T", "command", "shift"), "show; show; command+shift+'T'"},
      {shell::FillOpenLocation(scripts, "onenote:https://x/a.one#b&end"),
       "open onenote:https://x/a.one#b&end; show"},
  };
  for (const auto& [script, steps] : kCases) {
    RecordedTarget target;
    EXPECT_TRUE(PracticeDesktop(target).RunScript(script).ok());
    EXPECT_EQ(target.seen, steps);
  }
}

// After a step that failed nothing more may be typed: a paste would follow a delete that never happened.
TEST(PracticeDesktop, StopsAtTheFirstProblemAndNamesIt) {
  const shell::ScriptTable scripts = shell::BuiltInScripts();
  struct Case {
    std::string script, failAt;
    ScriptProblem problem;
    std::string seen;
  };
  const Case kCases[] = {
      {scripts.ScriptCopy, "show", ScriptProblem::NoAnswer, "show"},
      {scripts.ScriptCopy, "command+'c'", ScriptProblem::NothingCopied, "show; show; command+'c'"},
      {scripts.ScriptPasteReplacing, "51", ScriptProblem::TargetClosed, "show; show; 51"},
      {scripts.ScriptWordExport, "", ScriptProblem::Unsupported, ""},
      {"tell application \"Microsoft OneNote\"\nopen location \"https://example.org/\"\nend tell", "",
       ScriptProblem::Unsupported, ""},
      {"do shell script \"rm\"", "", ScriptProblem::BadScript, ""},
  };
  for (const Case& c : kCases) {
    RecordedTarget target;
    target.failAt = c.failAt;
    target.problem = c.problem;
    EXPECT_EQ(PracticeDesktop(target).RunScript(c.script).problem, c.problem) << c.script;
    EXPECT_EQ(target.seen, c.seen) << c.script;
  }
}

// Menu rows ask these before they are enabled.
TEST(PracticeDesktop, StandsForOneNoteOnly) {
  RecordedTarget target;
  PracticeDesktop desktop(target, [] { return 7; });
  EXPECT_TRUE(desktop.ApplicationInstalled("/Applications/Microsoft OneNote.app"));
  EXPECT_FALSE(desktop.ApplicationInstalled("/Applications/Microsoft Word.app"));
  EXPECT_FALSE(desktop.OneNoteRunning());
  target.open = true;
  EXPECT_TRUE(desktop.OneNoteRunning());
  EXPECT_EQ(desktop.GetIdleSeconds(), 7);
  EXPECT_EQ(PracticeDesktop(target).GetIdleSeconds(), -1);
}

}  // namespace
}  // namespace quill::platform::practice
