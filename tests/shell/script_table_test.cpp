#include "shell/script_table.h"

#include <gtest/gtest.h>

#include "platform/script/script_parser.h"

namespace quill::shell {
namespace {

// On the Mac these texts are run as they stand, so one of them is pinned letter by letter.
TEST(ScriptTable, CopyScriptReadsAsWritten) {
  EXPECT_EQ(
      BuiltInScripts().ScriptCopy,
      "delay 0.5\ntell application \"/Applications/Microsoft OneNote.app\"\nreopen\nactivate\nend tell\n"
      "delay 0.5\ntell application \"System Events\"\ntell process \"Microsoft OneNote\"\n"
      "keystroke \"c\" using {command down}\nend tell\nend tell\ndelay 0.5");
}

// Elsewhere they are parsed: every built-in text must be inside the subset.
TEST(ScriptTable, EveryTextParses) {
  const ScriptTable scripts = BuiltInScripts();
  for (const std::string& text :
       {scripts.ScriptActivate, scripts.ScriptPasteReplacing, scripts.ScriptPasteAtCaret, scripts.ScriptCopy,
        scripts.ScriptCommandO, scripts.ScriptCopyPageLink, FillKeystroke(scripts, "T", "command", "shift"),
        FillKeystroke(scripts, "n", "command"), scripts.ScriptWordExport,
        FillOpenLocation(scripts, "onenote:x")}) {
    const auto program = platform::script::ParseScript(text);
    EXPECT_TRUE(program.ok()) << text << "\n" << (program.ok() ? "" : program.error());
  }
}

// A link comes from the clipboard: it must not be able to end the string and add statements.
TEST(ScriptTable, LinksCannotLeaveTheirString) {
  const ScriptTable scripts = BuiltInScripts();
  const std::string text = FillOpenLocation(scripts, "onenote:\"\ndo shell script \"rm\\\" %@");
  const auto program = platform::script::ParseScript(text);
  ASSERT_TRUE(program.ok()) << text;
  ASSERT_EQ(program->size(), 2u);
  EXPECT_EQ(std::get<platform::script::OpenLocation>((*program)[0]).url,
            "onenote:%22do shell script %22rm%5C%22 %@");
}

}  // namespace
}  // namespace quill::shell
