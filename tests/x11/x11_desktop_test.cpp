#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/script_table.h"
#include "x11/x11_world.h"

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;
using platform::Flavour;
using platform::PasteboardSnapshot;
using platform::ScriptProblem;
using platform::ScriptResult;
using platform::x11::X11Backend;
using testing::HasSubstr;

constexpr xcb_keysym_t kShiftKey = 0xffe1;

class X11DesktopTest : public testing::Test {
 protected:
  ScriptResult Copy() {
    backend->pasteboard().Clear();
    return backend->desktop().RunScript(scripts.ScriptCopy);
  }
  ScriptResult Paste(std::string_view html) {
    backend->pasteboard().Clear();
    EXPECT_TRUE(backend->pasteboard().Write(Flavour::Html, html));
    return backend->desktop().RunScript(scripts.ScriptPasteReplacing);
  }
  std::string ReadHtml() { return backend->pasteboard().Read(Flavour::Html).ValueOr("(absent)"); }

  X11World world;
  std::unique_ptr<X11Backend> backend = world.Backend();
  const shell::ScriptTable scripts = shell::BuiltInScripts();
};

// The day's backup waits for the window to be closed.
TEST_F(X11DesktopTest, KnowsWhetherItsTargetIsOpen) {
  EXPECT_FALSE(backend->desktop().OneNoteRunning());
  const auto oneNote = world.Adversary();
  EXPECT_TRUE(backend->desktop().OneNoteRunning());
}

// The everyday case: the target gets exactly the keys of the script and our text, and the user's clipboard
// with all its forms, one of them of 3 MB, is back when it is over.
TEST_F(X11DesktopTest, BorrowsTheClipboardForARoundTrip) {
  const std::string large(3 << 20, 'u');
  const auto user =
      world.ClipboardOwner({{"UTF8_STRING", large}, {"text/html", "<b>user</b>"}, {"x-own/form", "1"}});
  const auto oneNote = world.Adversary();
  const PasteboardSnapshot before = backend->pasteboard().Save();
  EXPECT_TRUE(before.complete);

  ASSERT_TRUE(Copy().ok());
  EXPECT_THAT(ReadHtml(), HasSubstr("<!--StartFragment--><p>copied</p><!--EndFragment-->"));
  ASSERT_TRUE(Paste("<p>PASTED</p>").ok());
  backend->pasteboard().Restore(before);

  EXPECT_EQ(oneNote->WaitForLine("pasted "), "13 <p>PASTED</p>");
  EXPECT_EQ(KeysOf(*oneNote), "Control+c BackSpace Control+v");
  EXPECT_EQ(KeysOf(*user), "");
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), large);
  EXPECT_EQ(world.ClipboardAs("text/html"), "<b>user</b>");
  EXPECT_EQ(world.ClipboardAs("x-own/form"), "1");
}

// The menu click or another program leaves OneNote in the background: it must be brought to the front first.
TEST_F(X11DesktopTest, BringsTheTargetToTheFront) {
  const auto oneNote = world.Adversary();
  const auto other = world.Adversary({"title=other"});
  ASSERT_TRUE(Copy().ok());
  EXPECT_EQ(KeysOf(*oneNote), "Control+c");
  EXPECT_EQ(KeysOf(*other), "");
}

// A window that pops up between Delete and Command+V must not get the paste, nor anything else.
TEST_F(X11DesktopTest, TypesNothingIntoAWindowThatTakesTheFocus) {
  const auto thief = world.Adversary({"title=thief"});
  const auto oneNote = world.Adversary();
  bool stolen = false;
  world.onNote = [&](std::string_view note) {
    if (note != "key sent: key code 51" || stolen) return;
    stolen = true;
    thief->Say("activate");
    EXPECT_TRUE(world.BecomesActive("thief"));
  };
  const ScriptResult result = Paste("<p>PASTED</p>");
  EXPECT_TRUE(stolen);
  EXPECT_EQ(result.problem, ScriptProblem::FocusLost);
  EXPECT_EQ(result.detail, "thief");
  EXPECT_EQ(KeysOf(*thief), "");
  EXPECT_EQ(KeysOf(*oneNote), "BackSpace");
}

// An open menu or a screen locker gets every key although the window still has the focus.
TEST_F(X11DesktopTest, TypesNothingWhileTheKeyboardIsGrabbed) {
  const auto locker = world.Adversary({"title=locker"});
  const auto oneNote = world.Adversary();
  locker->Say("grab");
  locker->WaitForLine("grabbed");
  EXPECT_EQ(Copy().problem, ScriptProblem::FocusLost);
  EXPECT_EQ(KeysOf(*locker) + KeysOf(*oneNote), "");
}

// The hot key's own modifiers are often still down: Shift+Delete would cut. They are waited for.
TEST_F(X11DesktopTest, WaitsForAHeldModifier) {
  const auto oneNote = world.Adversary();
  world.Press(kShiftKey);
  world.onNote = [&](std::string_view note) {
    if (note.find("waiting for a modifier key: Shift") == 0) world.Release(kShiftKey);
  };
  EXPECT_TRUE(Copy().ok());
  EXPECT_EQ(KeysOf(*oneNote), "Control+c");
}

// A modifier that never comes up is named, and nothing is typed.
TEST_F(X11DesktopTest, GivesUpOnAModifierThatStaysDown) {
  const auto oneNote = world.Adversary();
  world.Press(kShiftKey);
  const ScriptResult result = Copy();
  world.Release(kShiftKey);
  EXPECT_EQ(result.problem, ScriptProblem::ModifierHeld);
  EXPECT_EQ(result.detail, "Shift");
  EXPECT_EQ(KeysOf(*oneNote), "");
}

// Each way in which a copy goes wrong has a message of its own; whatever happens, the user's clipboard stays.
TEST_F(X11DesktopTest, TellsWhyACopyBroughtNothing) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "user's own"}});
  const struct {
    const char* manner;
    ScriptProblem problem;
    const char* html;
  } cases[] = {
      {"copy=late", ScriptProblem::None, "<p>copied</p>"},
      {"copy=never", ScriptProblem::NothingCopied, "(absent)"},
      {"copy=hang", ScriptProblem::NoAnswer, "(absent)"},
      {"copy=close", ScriptProblem::TargetClosed, "(absent)"},
  };
  for (const auto& c : cases) {
    const auto oneNote = world.Adversary({c.manner});
    const PasteboardSnapshot before = backend->pasteboard().Save();
    EXPECT_EQ(Copy().problem, c.problem) << c.manner;
    EXPECT_THAT(ReadHtml(), HasSubstr(c.html)) << c.manner;
    EXPECT_EQ(KeysOf(*oneNote), "Control+c") << c.manner;
    backend->pasteboard().Restore(before);
    EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "user's own") << c.manner;
  }
  EXPECT_EQ(Copy().problem, ScriptProblem::TargetMissing);
  EXPECT_EQ(KeysOf(*user), "");
}

// A paste that the application does not take in must not be reported as done.
TEST_F(X11DesktopTest, NoticesThatNobodyReadThePaste) {
  const auto oneNote = world.Adversary({"paste=ignores"});
  EXPECT_EQ(Paste("<p>PASTED</p>").problem, ScriptProblem::NoAnswer);
}

// The restore must wait until a large paste has been fetched whole, or the target pastes the user's old text.
TEST_F(X11DesktopTest, HandsOverALargePasteBeforeItRestores) {
  const auto user = world.ClipboardOwner({{"text/html", "<b>user</b>"}});
  const auto oneNote = world.Adversary();
  const PasteboardSnapshot before = backend->pasteboard().Save();
  const std::string large = "<p>" + std::string(3 << 20, 'z') + "</p>";
  ASSERT_TRUE(Paste(large).ok());
  backend->pasteboard().Restore(before);
  EXPECT_EQ(oneNote->WaitForLine("pasted ").substr(0, 12), std::to_string(large.size()) + " <p>z");
  EXPECT_EQ(world.ClipboardAs("text/html"), "<b>user</b>");
}

// With two notebooks open, a changed selection must go back to the window that it came from.
TEST_F(X11DesktopTest, ReplacesInTheWindowItCopiedFrom) {
  const auto second = world.Adversary({"title=OneNote 2"});
  const auto first = world.Adversary({"title=OneNote 1"});
  ASSERT_TRUE(Copy().ok());
  second->Say("activate");
  ASSERT_TRUE(world.BecomesActive("OneNote 2"));
  ASSERT_TRUE(Paste("<p>PASTED</p>").ok());
  EXPECT_EQ(KeysOf(*first), "Control+c BackSpace Control+v");
  EXPECT_EQ(KeysOf(*second), "");
}

// A clipboard manager that takes over what OneNote copied changes nothing for the command; one that writes
// something of its own while OneNote copies nothing is not taken for a copy.
TEST_F(X11DesktopTest, LivesWithAClipboardManager) {
  {
    const auto manager = world.Adversary({"title=manager", "watch=same"});
    const auto oneNote = world.Adversary();
    const PasteboardSnapshot before = backend->pasteboard().Save();
    ASSERT_TRUE(Copy().ok());
    EXPECT_EQ(manager->WaitForLine("took over"), "");
    EXPECT_THAT(ReadHtml(), HasSubstr("<p>copied</p>"));
    backend->pasteboard().Restore(before);
    EXPECT_EQ(world.ClipboardAs("text/html").find("copied"), std::string::npos);
  }
  const auto oneNote = world.Adversary({"copy=never"});
  const auto user = world.Adversary({"title=user"});
  world.onNote = [&](std::string_view note) {
    if (note == "key sent: c") user->Say("own text/html <p>user</p>");
  };
  const ScriptResult result = Copy();
  EXPECT_EQ(result.problem, ScriptProblem::NothingCopied);
  EXPECT_EQ(result.detail, "another program wrote to the clipboard");
  EXPECT_EQ(ReadHtml(), "(absent)");
}

// A script must fail as a whole, with the reason, when this desktop cannot perform it.
TEST_F(X11DesktopTest, RefusesWhatItCannotPerform) {
  const auto oneNote = world.Adversary();
  const std::string keys = "tell process \"Microsoft OneNote\"\nkeystroke \"\xC3\xA9\"\nend tell";
  EXPECT_EQ(backend->desktop().RunScript("do shell script \"x\"").problem, ScriptProblem::BadScript);
  EXPECT_EQ(backend->desktop().RunScript(keys).problem, ScriptProblem::BadScript);
  EXPECT_EQ(backend->desktop().RunScript(scripts.ScriptWordExport).problem, ScriptProblem::TargetMissing);
  EXPECT_EQ(backend->desktop().RunScript(shell::FillOpenLocation(scripts, "onenote:x")).problem,
            ScriptProblem::Unsupported);
  EXPECT_EQ(KeysOf(*oneNote), "");
}

}  // namespace
}  // namespace quill::x11_test
