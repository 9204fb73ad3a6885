// What the practice notebook puts on the clipboard, held against the form of OneNote's application and
// against the rules of the program's own reader.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "content/html_normalizer.h"
#include "content/text_between.h"
#include "content/working_document.h"
#include "practice/practice_world.h"

namespace quill::test {
namespace {

using platform::Flavour;
using testing::HasSubstr;
using testing::Not;

/// Copies by script, as commands do; the HTML and the fragment in it.
struct Copied {
  explicit Copied(PracticeWorld& world) {
    const platform::ScriptResult result = world.RunScript(world.scripts.ScriptCopy);
    EXPECT_TRUE(result.ok()) << result.detail;
    html = world.pasteboard.Read(Flavour::Html).ValueOr("");
    text = world.pasteboard.Read(Flavour::Text).ValueOr("");
    fragment = content::CutFragment(html).fragment;
  }
  std::string html, text, fragment;
};

std::string Xml(const std::string& fragment) {
  Result<content::WorkingDocument> document = content::WorkingDocument::Parse(content::HtmlToXml(fragment));
  return document.ok() ? document->Xml() : "not well-formed: " + document.error() + "\n" + fragment;
}

// A page whose copy the program's own reader refuses could not be used for practising at all.
TEST(CopyForm, EveryBuiltInPageIsReadByTheCore) {
  PracticeWorld world;
  for (const char* title :
       {"Welcome", "Headings", "Table", "Lists", "Picture", "Asian text", "Source code"}) {
    ASSERT_TRUE(world.OpenPage(title) && world.SelectPage()) << title;
    const Copied copied(world);
    EXPECT_THAT(Xml(copied.fragment), HasSubstr("<quillText>")) << title;
    EXPECT_THAT(copied.html, HasSubstr("<meta name=ProgId content=OneNote.File>")) << title;
    EXPECT_EQ(copied.html.find('\n'), copied.html.find("\r\n") + 1) << title;
    EXPECT_FALSE(copied.text.empty()) << title;
  }
}

// Tools meet these shapes in users' notes: bare values, rows right below the table, a nested list beside
// the item it belongs to, open images that lie in files.
TEST(CopyForm, WritesTheShapesOfTheApplication) {
  PracticeWorld world;
  ASSERT_TRUE(world.OpenPage("Table") && world.SelectBlock("table"));
  const std::string table = Copied(world).fragment;
  EXPECT_THAT(table,
              HasSubstr("<div style='direction:ltr'>\r\n\r\n<table border=1 cellpadding=0 cellspacing=0 "
                        "valign=top style='direction:ltr;"));
  EXPECT_THAT(table, HasSubstr("summary=\"\">\r\n <tr>\r\n  <td style='"));
  EXPECT_THAT(table, Not(HasSubstr("tbody")));
  EXPECT_THAT(table, HasSubstr(">&nbsp;</p>"));

  ASSERT_TRUE(world.OpenPage("Lists") && world.SelectBlock("ol"));
  const std::string list = Copied(world).fragment;
  EXPECT_THAT(list, HasSubstr("<ol type=1 style='"));
  EXPECT_THAT(list, HasSubstr("<li value=1 style='"));
  EXPECT_THAT(list, HasSubstr("Add the pasta</span></li>\r\n<ol type=1"));

  ASSERT_TRUE(world.OpenPage("Picture") && world.SelectBlock("img"));
  const std::string picture = Copied(world).fragment;
  EXPECT_THAT(picture,
              testing::ContainsRegex("<img width=320 height=180 src=\"file:///[^\"]*clip_image001.png\" "
                                     "alt=\"Machine generated alternative text:&#10;"));
  EXPECT_THAT(picture, Not(HasSubstr("/>")));
}

// Words inside a line come as bare spans; a paragraph around them would break the line when pasted back.
TEST(CopyForm, PartOfALineHasNoParagraph) {
  PracticeWorld world;
  ASSERT_TRUE(world.SelectText("brown fox"));
  const Copied copied(world);
  EXPECT_EQ(copied.fragment, "<span style='color:#b26a00'>brown</span> fox");
  EXPECT_EQ(copied.text, "brown fox");
  ASSERT_TRUE(world.SelectText("row"));
  EXPECT_EQ(Copied(world).fragment, "<span style='color:#b26a00'>row</span>") << "the style around stays";
}

// A command on nothing must be told so, and must leave the user's clipboard alone.
TEST(CopyForm, NothingSelectedLeavesTheClipboard) {
  PracticeWorld world;
  ASSERT_TRUE(world.CaretToEnd());
  world.pasteboard.Write(Flavour::Text, "the user's own");
  EXPECT_EQ(world.RunScript(world.scripts.ScriptCopy).problem, platform::ScriptProblem::NothingCopied);
  EXPECT_EQ(world.pasteboard.Read(Flavour::Text).ValueOr(""), "the user's own");
}

// Favourites and the online commands cut the client link out of the second line.
TEST(CopyForm, PageLinkIsTwoLinesAndLeadsBack) {
  PracticeWorld world;
  ASSERT_TRUE(world.OpenPage("Asian text"));
  ASSERT_TRUE(world.RunScript(world.scripts.ScriptCopyPageLink).ok());
  const std::string text = world.pasteboard.Read(Flavour::Text).ValueOr("");
  EXPECT_THAT(
      text, testing::MatchesRegex(
                "https://[^\r]*\r\nonenote:https://d\\.docs\\.live\\.net/[0-9a-f]+/Documents/Practice/"
                "Material\\.one#Asian%20text&section-id=\\{[0-9A-F-]+\\}&page-id=\\{[0-9A-F-]+\\}&end\r\n"));
  ASSERT_TRUE(world.OpenPage("Lists"));
  std::string link = text.substr(text.find("onenote:"));
  link.resize(link.find('\r'));
  EXPECT_TRUE(world.RunScript(shell::FillOpenLocation(world.scripts, link)).ok());
  EXPECT_EQ(world.PageTitle(), "Asian text");
  const std::string foreign =
      "onenote:https://d.docs.live.net/1/a.one#b&page-id={00000000-0000-0000-0000-000000000000}&end";
  EXPECT_EQ(world.RunScript(shell::FillOpenLocation(world.scripts, foreign)).problem,
            platform::ScriptProblem::TargetMissing);
}

}  // namespace
}  // namespace quill::test
