#include "platform/script/script_parser.h"

#include <gtest/gtest.h>

#include "shell/script_table.h"

namespace quill::platform::script {
namespace {

constexpr const char* kOneNote = "Microsoft OneNote";
constexpr const char* kOneNotePath = "/Applications/Microsoft OneNote.app";

// The scripts that every command runs must come out as exactly the keys that macOS would send.
TEST(ScriptParser, UnderstandsTheBuiltInScripts) {
  const shell::ScriptTable scripts = shell::BuiltInScripts();
  const Program begin = {Delay{0.5}, Reopen{kOneNotePath}, Activate{kOneNotePath}};
  const Modifiers command{.command = true};
  const auto with = [&](Program rest) {
    Program all = begin;
    all.insert(all.end(), rest.begin(), rest.end());
    return all;
  };
  const struct {
    std::string text;
    Program steps;
  } cases[] = {
      {scripts.ScriptActivate, begin},
      {scripts.ScriptCopy, with({Delay{0.5}, Keystroke{kOneNote, "c", command}, Delay{0.5}})},
      {scripts.ScriptPasteReplacing,
       with({KeyCode{kOneNote, kKeyCodeDelete, {}}, Keystroke{kOneNote, "v", command}, Delay{0.5}})},
      {scripts.ScriptPasteAtCaret, with({Keystroke{kOneNote, " ", {}}, KeyCode{kOneNote, kKeyCodeDelete, {}},
                                         Keystroke{kOneNote, "v", command}, Delay{0.5}})},
      {scripts.ScriptCommandO, with({Delay{0.5}, Keystroke{kOneNote, "o", command}, Delay{0.5},
                                     KeyCode{kOneNote, kKeyCodeDownArrow, {.option = true}}, Delay{0.5}})},
      {scripts.ScriptCopyPageLink,
       with({Keystroke{kOneNote, "p", {.command = true, .control = true}}, Delay{0.5}})},
      {shell::FillKeystroke(scripts, "T", "command", "shift"),
       with({Keystroke{kOneNote, "T", {.command = true, .shift = true}}, Delay{0.5}})},
      {shell::FillOpenLocation(scripts, "onenote:a\"b"),
       {OpenLocation{kOneNote, "onenote:a%22b"}, Activate{kOneNote}}},
  };
  for (const auto& c : cases) {
    const Result<Program> parsed = ParseScript(c.text);
    ASSERT_TRUE(parsed.ok()) << c.text << "\n" << parsed.error();
    EXPECT_EQ(*parsed, c.steps) << c.text;
  }
}

// Users edit these texts by hand, on any system: comments, line ends and capitals must not matter.
TEST(ScriptParser, ToleratesHowPeopleWrite) {
  const Result<Program> parsed = ParseScript(
      "-- wait first\r\n\r\n\tDelay 2 -- long\r\n"
      "tell application \"a \\\"b\\\" \\\\\"\r\n  run VB macro macro name \"M--1\"\r\nEND TELL");
  ASSERT_TRUE(parsed.ok()) << parsed.error();
  EXPECT_EQ(*parsed, (Program{Delay{2}, RunMacro{"a \"b\" \\", "M--1"}}));
}

// A script that is not understood must name the line, and above all must not be half performed.
TEST(ScriptParser, RefusesTheRestAndNamesTheLine) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"delay 0.5\ndo shell script \"rm -rf /\"", "line 2: \"do\" was not understood"},
      {"delay", "line 1: a number of seconds was expected"},
      {"delay -1", "line 1: a number of seconds was expected"},
      {"delay 1.2.3", "line 1: a number of seconds was expected"},
      {"delay 99999999999999999999", "line 1: a number of seconds was expected"},
      {"delay 1 2", "line 1: \"2\" was not understood"},
      {"\n\nend tell", "line 3: \"end tell\" without \"tell\""},
      {"tell application \"a\"\nactivate", "line 2: \"tell\" without \"end tell\""},
      {"activate", "line 1: outside \"tell application\""},
      {"tell process \"p\"\nreopen\nend tell", "line 2: outside \"tell application\""},
      {"tell application \"a\"\nkeystroke \"c\"\nend tell", "line 2: outside \"tell process\""},
      {"tell process \"p\"\nkeystroke \"c\" using {command down\nend tell",
       "line 2: } was expected, not the end of the line"},
      {"tell process \"p\"\nkeystroke \"c\" using {hyper down}\nend tell",
       "line 2: a modifier was expected, not \"hyper\""},
      {"tell process \"p\"\nkey code 128\nend tell", "line 2: a key code from 0 to 127 was expected"},
      {"tell process \"p\"\nkey code 5.5\nend tell", "line 2: a key code from 0 to 127 was expected"},
      {"tell application \"a\nend tell", "line 1: a string is not closed"},
      {"tell application \"a\\", "line 1: a string is not closed"},
      {"tell application \"\\n\"\nend tell", "line 1: the escape \\n is not known"},
      {"tell application a\nend tell", "line 1: a name in quotes was expected, not \"a\""},
  };
  for (const auto& c : cases) {
    const Result<Program> parsed = ParseScript(c.text);
    ASSERT_FALSE(parsed.ok()) << c.text;
    EXPECT_EQ(parsed.error(), c.error) << c.text;
  }
}

}  // namespace
}  // namespace quill::platform::script
