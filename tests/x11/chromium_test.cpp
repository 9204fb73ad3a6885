#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

#include "content/html_normalizer.h"
#include "content/text_between.h"
#include "content/working_document.h"
#include "shell/script_table.h"
#include "x11/chromium_world.h"

namespace quill::x11_test {
namespace {

using namespace std::chrono_literals;
using platform::Flavour;
using platform::PasteboardSnapshot;
using platform::ScriptResult;
using platform::x11::X11Backend;
using testing::HasSubstr;
using testing::Not;

// The shape in which OneNote for the web builds its pages.
constexpr const char* kPage = R"html(<div id="sel" class="Outline">
<div class="OutlineElement Ltr"><p class="Paragraph" style="margin:0"><span class="TextRun"
 style="font-family:Calibri;color:rgb(0,128,0)">first line &amp; more<br>second</span></p></div>
<div class="OutlineElement Ltr"><table border="1"><tbody><tr><td>one</td><td style="background-color:#ff0000">two</td>
</tr><tr><td>three</td><td><a href="http://example.org/?width=3&amp;b=4">four</a></td></tr></tbody></table></div>
<img alt="a>b" src="data:image/gif;base64,R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7">
<ul><li><p>item</p></li></ul></div><p>after</p>)html";

class ChromiumTest : public testing::Test {
 protected:
  template <class Work>
  double Timed(const char* name, Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
    std::cout << name << ": " << spent.count() << " ms\n";
    return spent.count();
  }

  std::string Copy() {
    backend->pasteboard().Clear();
    const ScriptResult result = backend->desktop().RunScript(scripts.ScriptCopy);
    EXPECT_TRUE(result.ok()) << static_cast<int>(result.problem) << " " << result.detail;
    return backend->pasteboard().Read(Flavour::Html).ValueOr("");
  }

  void Paste(std::string_view html) {
    backend->pasteboard().Clear();
    ASSERT_TRUE(backend->pasteboard().Write(Flavour::Html, html));
    const ScriptResult result = backend->desktop().RunScript(scripts.ScriptPasteReplacing);
    EXPECT_TRUE(result.ok()) << static_cast<int>(result.problem) << " " << result.detail;
  }

  X11World world;
  std::unique_ptr<X11Backend> backend = world.Backend();
  const shell::ScriptTable scripts = shell::BuiltInScripts();
};

/// A document with one word of its fragment changed.
std::string Changed(const std::string& html, const std::string& from, const std::string& to) {
  std::string changed = html;
  const std::size_t at = changed.find(from);
  return at == std::string::npos ? changed : changed.replace(at, from.size(), to);
}

// The whole way with a real browser: what it copies must parse as the application's own form does, and what
// goes back must be on the page, once, with the user's clipboard in place again.
TEST_F(ChromiumTest, ChangesASelectionInPlace) {
  const auto user = world.ClipboardOwner({{"UTF8_STRING", "user's own"}});
  ChromiumWorld page(world, kPage);
  const PasteboardSnapshot before = backend->pasteboard().Save();

  std::string html;
  RecordProperty("copy_ms", std::to_string(Timed("copy", [&] { html = Copy(); })));
  const std::string xml = content::HtmlToXml(content::CutFragment(html).fragment);
  const auto document = content::WorkingDocument::Parse(xml);
  ASSERT_TRUE(document.ok()) << document.error() << "\n" << html;
  EXPECT_THAT(xml, Not(HasSubstr("<tbody")));
  EXPECT_THAT(xml, Not(HasSubstr("orphans")));
  EXPECT_THAT(xml, HasSubstr("first line &amp; more<br/>second"));

  const std::string back = "<html><body><!--StartFragment-->" + content::XmlToHtml(document->Xml()) +
                           "<!--EndFragment--></body></html>";
  RecordProperty("paste_ms",
                 std::to_string(Timed("paste", [&] { Paste(Changed(back, "three", "CHANGED")); })));
  Timed("restore", [&] { backend->pasteboard().Restore(before); });

  const std::string dom = page.WaitForDom("CHANGED");
  EXPECT_THAT(dom, HasSubstr("<td"));
  EXPECT_THAT(dom, HasSubstr("http://example.org/?width=3&amp;b=4"));
  EXPECT_THAT(dom, HasSubstr("rgb(0, 128, 0)"));
  EXPECT_EQ(dom.find("first line"), dom.rfind("first line")) << "the selection was replaced, not doubled";
  EXPECT_EQ(world.ClipboardAs("UTF8_STRING"), "user's own");
  EXPECT_EQ(KeysOf(*user), "");
}

// A long page travels in portions both ways, and the restore must not cut in before the browser has it all.
// Chromium reads the paste twice; a new owner between the two would be pasted instead.
TEST_F(ChromiumTest, ChangesALargeSelection) {
  std::string words;
  for (int i = 0; i < 6000; ++i) words += "some words ";
  std::string body = "<div id=\"sel\">";
  for (int i = 0; i < 20; ++i) body += "<p>paragraph " + std::to_string(i) + " " + words + "</p>";
  ChromiumWorld page(world, body + "</div>");
  const auto user = world.ClipboardOwner({{"text/html", "<b>user's own</b>"}});
  const PasteboardSnapshot before = backend->pasteboard().Save();
  std::string html;
  Timed("copy", [&] { html = Copy(); });
  ASSERT_GT(html.size(), 1u << 20);
  Timed("paste", [&] { Paste(Changed(html, "paragraph 19 ", "CHANGED ")); });
  Timed("restore", [&] { backend->pasteboard().Restore(before); });
  EXPECT_EQ(world.ClipboardAs("text/html"), "<b>user's own</b>");
  EXPECT_THAT(page.WaitForDom("CHANGED", 30s), HasSubstr("paragraph 18 "));

  // What the user pastes into the page later is the user's own again.
  const auto pasted = [&] {
    EXPECT_TRUE(backend->desktop().RunScript(scripts.ScriptPasteAtCaret).ok());
    return page.WaitForDom("user's own", 500ms).find("user's own") != std::string::npos;
  };
  EXPECT_TRUE(Eventually(pasted, 10s));
}

// Nothing selected is what users forget most: it must be told as such within two seconds, nothing pasted.
TEST_F(ChromiumTest, TellsThatNothingIsSelected) {
  ChromiumWorld page(world, "<p id=\"sel\">text</p>");
  Paste("<p>new</p>");
  page.WaitForDom("new");
  const int changes = page.changes();
  backend->pasteboard().Clear();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(backend->desktop().RunScript(scripts.ScriptCopy).problem, platform::ScriptProblem::NothingCopied);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
  EXPECT_EQ(page.changes(), changes);
}

}  // namespace
}  // namespace quill::x11_test
