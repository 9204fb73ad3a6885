// What pasting does to a page of the practice notebook.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "content/text_between.h"
#include "practice/practice_world.h"

namespace quill::test {
namespace {

using platform::Flavour;
using testing::HasSubstr;
using testing::Not;

/// Copies the selection and pastes it over itself, as a command does that changes nothing.
void PasteBack(PracticeWorld& world) {
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptCopy).ok());
  const std::string html = world.pasteboard.Read(Flavour::Html).ValueOr("");
  world.pasteboard.Write(Flavour::Html, html);
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptPasteReplacing).ok());
}

void PasteFragment(PracticeWorld& world, const std::string& fragment) {
  world.pasteboard.Write(Flavour::Html,
                         content::JoinFragment(content::kBuiltHead, fragment, content::kBuiltTail));
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptPasteAtCaret).ok());
}

// A command that changes one letter must not lose lines, cells or items around it, wherever the selection
// begins and ends; the same selection must be there to copy again.
TEST(Paste, AnUnchangedCopyLeavesThePageAsItWas) {
  struct Case {
    const char* page;
    const char* block;  ///< a CSS selector, or nothing when `text` is selected
    const char* text;   ///< across the ends of paragraphs when it holds parts of two; empty for the page
  };
  constexpr Case kCases[] = {
      {"Welcome", nullptr, "fox jumps"},
      {"Welcome", nullptr, "menu, and choose UPPER CASE:\nThe quick brown"},
      {"Welcome", "p:nth-of-type(4)", nullptr},
      {"Welcome", nullptr, ""},
      {"Headings", "h2", nullptr},
      {"Headings", nullptr, ""},
      {"Table", "table", nullptr},
      {"Table", nullptr, "yellow\n0.80\nPlum"},
      {"Table", nullptr, "Plum"},
      {"Table", nullptr, "1.20"},
      {"Table", nullptr, ""},
      {"Lists", "ul", nullptr},
      {"Lists", "ol li", nullptr},
      {"Lists", nullptr, "ead\nFru"},
      {"Lists", nullptr, "Fruit\nApples\nPears"},
      {"Lists", nullptr, "ples\nPears\nChe"},
      {"Lists", nullptr, "Cheese"},
      {"Lists", nullptr, "with numbers:\nBoil the wa"},
      {"Lists", nullptr, ""},
      {"Picture", "img", nullptr},
      {"Picture", nullptr, ""},
      {"Asian text", nullptr, "公園を散歩"},
      {"Asian text", nullptr, ""},
      {"Source code", nullptr, "for (const char* name : names) {\n"},
      {"Source code", nullptr, ""},
  };
  PracticeWorld world;
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.page) + ": " + (c.block ? c.block : c.text));
    ASSERT_TRUE(world.OpenPage("Welcome") && world.OpenPage(c.page));
    const bool whole = !c.block && !*c.text;
    ASSERT_TRUE(c.block ? world.SelectBlock(c.block) : whole ? world.SelectPage() : world.SelectText(c.text));
    const std::string before = world.VisibleText();
    const std::string html = world.PageHtml();
    PasteBack(world);
    EXPECT_EQ(world.VisibleText(), before);
    ASSERT_TRUE(
        world
            .RunScript("tell process \"Microsoft OneNote\"\nkeystroke \"z\" using {command down}\nkeystroke "
                       "\"z\" using {command down}\nend tell")
            .ok());
    EXPECT_EQ(world.PageHtml(), html) << "undone";
  }
}

// Highlighted code ends its lines by a break and a line feed; taken for two, every line would be followed by
// an empty one.
TEST(Paste, CodeKeepsItsLines) {
  PracticeWorld world;
  ASSERT_TRUE(world.OpenPage("Welcome") && world.CaretToEnd());
  PasteFragment(world,
                "<table><tr><td><pre>int a;<br>\n<br>\n&nbsp;&nbsp;<b>b</b>;<br>\n</pre></td></tr></table>");
  EXPECT_THAT(world.PageHtml(), HasSubstr("<pre>int a;<br><br>&nbsp;&nbsp;<b>b</b>;<br></pre>"));
}

// Text that a selection keeps (caret in a line, in an item, in a cell) stays beside what is pasted.
TEST(Paste, GoesToTheCaret) {
  PracticeWorld world;
  ASSERT_TRUE(world.OpenPage("Lists") && world.CaretToEnd());
  PasteFragment(world, "<p>one</p>\r\n\r\n<p>two <b>bold</b></p>");
  EXPECT_THAT(world.VisibleText(), HasSubstr("serveone\ntwo bold"))
      << "the first line joins, the second is an item";
  EXPECT_THAT(world.PageHtml(), HasSubstr("<li>two <b>bold</b></li>"));

  ASSERT_TRUE(world.OpenPage("Table") && world.CaretToEnd());
  PasteFragment(world, "<table border=\"1\"><tr><td>a</td><td>b</td></tr></table>");
  EXPECT_THAT(world.VisibleText(), HasSubstr("Chiara, Rome, 41\n"));
  EXPECT_THAT(world.VisibleText(), HasSubstr("a\tb"));
}

// New Page inserts its title where the caret is after the key: in the empty title.
TEST(Paste, TitleTakesOneLineOfText) {
  PracticeWorld world;
  ASSERT_TRUE(world.RunScript(shell::FillKeystroke(world.scripts, "n", "command", "")).ok());
  PasteFragment(world, "<p>Sat 21</p><p><b>Nov</b></p>");
  EXPECT_EQ(world.PageTitle(), "Sat 21 Nov");
  ASSERT_TRUE(world.RunScript(shell::FillKeystroke(world.scripts, "T", "command", "shift")).ok());
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptCopy).ok());
  EXPECT_EQ(world.pasteboard.Read(Flavour::Text).ValueOr(""), "Sat 21 Nov");
  world.pasteboard.Write(Flavour::Text, "★ Sat");
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptPasteReplacing).ok());
  EXPECT_EQ(world.PageTitle(), "★ Sat");
}

// A horizontal line is pasted as a PNG file's bytes, a macro's result as plain text.
TEST(Paste, TakesPicturesAndText) {
  PracticeWorld world;
  ASSERT_TRUE(world.CaretToEnd());
  const std::string png("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
  world.pasteboard.Write(Flavour::Png, png);
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptPasteAtCaret).ok());
  EXPECT_THAT(world.PageHtml(), HasSubstr("<img src=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUg==\""));
  world.pasteboard.Write(Flavour::Text, "x < y\n  z");
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptPasteAtCaret).ok());
  EXPECT_THAT(world.PageHtml(), HasSubstr("x &lt; y</p><p>&nbsp;&nbsp;z"));
}

// Whatever a web page has left on the clipboard: nothing of it runs, loads or covers the page.
TEST(Paste, HostileContentIsTakenApart) {
  PracticeWorld world;
  ASSERT_TRUE(world.CaretToEnd());
  PasteFragment(
      world,
      "<p onclick='evil()' style='position:fixed;top:0'>kept</p><script>document.title='evil'</script>"
      "<img src=x onerror='evil()'><img src='javascript:evil()'><svg onload='evil()'><p>broken out</p></svg>"
      "<a href=' java\tscript:evil()'>link</a><a href='https://example.org/'>good</a>"
      "<iframe src='https://evil.example/'></iframe><form action='https://evil.example/'><input "
      "name=a></form>"
      "<p style='background:u\\72l(https://evil.example/)'>styled</p><style>*{display:none}</style>"
      "<math><mtext><table><mglyph><style><img src=x onerror=evil()></style></mglyph></table></mtext></math>"
      "<p id=body contenteditable=false>last</p>");
  const std::string html = world.PageHtml();
  for (const char* bad :
       {"evil", "script", "onerror", "onclick", "iframe", "svg", "<input", "<style", "fixed", "id="}) {
    EXPECT_THAT(html, Not(HasSubstr(bad)));
  }
  EXPECT_THAT(html, HasSubstr("<a href=\"https://example.org/\">good</a>"));
  EXPECT_THAT(world.VisibleText(), HasSubstr("kept"));
  EXPECT_THAT(world.VisibleText(), HasSubstr("last"));
}

// A pasted "file:" address may name any file of the user: only pictures get onto the page.
TEST(Paste, OnlyPictureFilesAreTakenIn) {
  PracticeWorld world;
  ASSERT_TRUE(world.CaretToEnd());
  PasteFragment(world, "<img src=\"file:///etc/passwd\" alt=\"a\">");
  EXPECT_THAT(world.PageHtml(), HasSubstr("<img src=\"file:///etc/passwd\" alt=\"a\">"));
}

}  // namespace
}  // namespace quill::test
