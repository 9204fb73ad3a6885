#include <gmock/gmock.h>
#include <libxml/HTMLparser.h>
#include <unicode/uchar.h>

#include "content/unicode_text.h"
#include "online/page_edit.h"
#include "online/service_samples.h"
#include "page_world.h"

namespace quill::ui {
namespace {

using samples::Page;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Paragraph(const std::string& content) {
  return Page("<p id=\"p:{a}{1}\">" + content + "</p>");
}

std::string Where(const PageState& state) {
  return std::to_string(state.currentMatch) + " of " + std::to_string(state.matchCount);
}

// The walk of a user through the matches: in the page's order, told at the end, and from the top again.
TEST(FindInPage, GoesFromMatchToMatchAndRound) {
  PageWorld& page = PageWorld::Warm();
  page.Show(Page("<p id=\"p:1\">Ab ab</p><ol id=\"ol:1\"><li id=\"li:1\">x <b>a</b>b</li></ol>"));
  EXPECT_EQ(Where(page.Mark("ab")), "0 of 3");
  EXPECT_EQ(page.Marks(), "Ab|ab|a|b");
  EXPECT_EQ(Where(page.Find("ab")), "1 of 3");
  EXPECT_EQ(Where(page.Find("ab")), "2 of 3");
  EXPECT_EQ(Where(page.Find("ab")), "3 of 3");
  EXPECT_EQ(page.Marks(), "Ab|ab|[a]|[b]");
  const PageState end = page.Find("ab");
  EXPECT_FALSE(end.isFound);
  EXPECT_EQ(Where(end), "0 of 3");
  EXPECT_EQ(Where(page.Find("ab")), "1 of 3");
  EXPECT_FALSE(page.Find("ab", false, SearchDirection::Backwards).isFound);
  EXPECT_EQ(Where(page.Find("ab", false, SearchDirection::Backwards)), "3 of 3");
  EXPECT_EQ(Where(page.Find("ab", true, SearchDirection::Backwards)), "1 of 2") << "only ab and a-b now";
}

// Letters typed one by one look for a longer text at the same place; no text, no marks.
TEST(FindInPage, KeepsItsPlaceWhileTheTextGrows) {
  PageWorld& page = PageWorld::Warm();
  page.Show(Paragraph("no note, no nothing"));
  page.Find("no");
  EXPECT_EQ(Where(page.Find("no")), "2 of 4");
  page.Mark("not");
  EXPECT_EQ(Where(page.Find("not")), "1 of 2");
  EXPECT_EQ(page.Marks(), "[not]|not");
  EXPECT_EQ(Where(page.Mark("")), "0 of 0");
  EXPECT_EQ(page.Marks(), "");
  EXPECT_FALSE(page.Find("").isFound);
  EXPECT_EQ(page.Drawn(), "no note, no nothing");
}

// One after the other, with a look at each: nothing is replaced unseen, and never within what was put in.
TEST(FindInPage, ReplacesOneAfterTheOther) {
  PageWorld& page = PageWorld::Warm();
  page.Show(Page("<p id=\"p:1\">aaaa</p><p id=\"p:2\">aa</p>"));
  EXPECT_EQ(Where(page.Replace("aa", "a")), "1 of 3");
  EXPECT_EQ(page.Json(), "");
  EXPECT_EQ(Where(page.Replace("aa", "a")), "1 of 2") << "a|aa, aa";
  EXPECT_EQ(page.Drawn(), "aaa\n\naa");
  EXPECT_EQ(Where(page.Replace("aa", "a")), "2 of 2") << "behind what has become a match";
  EXPECT_EQ(Where(page.Replace("aa", "a")), "0 of 1");
  EXPECT_THAT(page.Changes(), ElementsAre("paragraph: aaaa -> aa", "paragraph: aa -> a"));
  EXPECT_FALSE(page.Replace("aa", "a").isFound) << "the search is at its end";
  EXPECT_EQ(page.Json(), R"([{"target":"p:1","action":"replace","content":"<p>aa</p>"},)"
                         R"({"target":"p:2","action":"replace","content":"<p>a</p>"}])");
}

// What was brought back to what it was is not sent: every element that is sent gets new ids.
TEST(FindInPage, SendsOnlyWhatDiffers) {
  PageWorld& page = PageWorld::Warm();
  page.Show(Page("<p id=\"p:1\">ab</p><p id=\"p:2\">x</p>"));
  EXPECT_EQ(page.ReplaceAll("AB", "ab").changeCount, 0);
  EXPECT_EQ(page.ReplaceAll("ab", "x").changeCount, 1);
  EXPECT_EQ(page.ReplaceAll("x", "ab").changeCount, 1);
  EXPECT_THAT(page.Changes(), ElementsAre("paragraph: x -> ab"));
  EXPECT_EQ(page.Json(), R"([{"target":"p:2","action":"replace","content":"<p>ab</p>"}])");
  page.Show(Paragraph("ab"));
  EXPECT_EQ(page.Json(), "");
}

// A text is data, whatever it holds; the window hands over what was typed.
TEST(FindInPage, TakesEveryTextLiterally) {
  PageWorld& page = PageWorld::Warm();
  for (const std::string text : {"it's", "\"\\", "');document.body.remove();('", "</p><script>",
                                 "\xE2\x80\xA8", "${1}", "&amp;", "$&", "\xF0\x9F\x98\x80"}) {
    page.Show(Paragraph("a"));
    EXPECT_TRUE(page.ReplaceAll("a", text).isFound) << text;
    EXPECT_EQ(page.Find(text).matchCount, 1) << text;
    EXPECT_EQ(page.Text("document.body.textContent"), "\r\n\t\r\n\t\r\n\t\t" + text + "\r\n\t\r\n") << text;
  }
}

// A bare "&" stays one, whatever comes behind it.
TEST(FindInPage, MakesNoReferenceByAccident) {
  PageWorld& page = PageWorld::Warm();
  const auto replaced = [&page](const std::string& html, const std::string& find, const std::string& by) {
    page.Show(Paragraph(html));
    page.ReplaceAll(find, by);
    const std::string json = page.Json();
    return page.Drawn() + " = " + json.substr(json.find("<p>"), json.rfind("</p>") - json.find("<p>"));
  };
  EXPECT_EQ(replaced("R&D", "D", "amp;"), "R&amp; = <p>R&amp;amp;");
  EXPECT_EQ(replaced("&x amp;", "x ", ""), "&amp; = <p>&amp;amp;");
  EXPECT_EQ(replaced("&D &D", "D", "#65;"), "&#65; &#65; = <p>&amp;#65; &amp;#65;");
  EXPECT_EQ(replaced("R&D &amp; D", "D", "E"), "R&E & E = <p>R&E &amp; E");
}

// Each kind of element as the user finds it in the list of changes, and what is sent for it.
TEST(FindInPage, NamesWhatItChanges) {
  PageWorld& page = PageWorld::Warm();
  page.Show(
      Page("<h2 id=\"h2:1\">ab</h2><table id=\"table:1\" style=\"border:1px solid\"><tr><td>"
           "<p id=\"p:1\">ab</p></td></tr></table><ul id=\"ul:1\"><li id=\"li:1\"><p>a&nbsp;b</p></li>"
           "</ul><div id=\"div:2\" style=\"position:absolute;left:300px;top:40px\">ab<!-- ink --></div>"
           "<p id=\"p:2\">a<br />b a<img src=\"x\" alt=\"ab\" />b</p>"));
  EXPECT_EQ(page.ReplaceAll("ab", "X").changeCount, 3);
  EXPECT_EQ(page.ReplaceAll("a b", "Y").changeCount, 4);
  EXPECT_THAT(page.Changes(), ElementsAre("heading: ab -> X", "cell: ab -> X",
                                          "item: a\xC2\xA0"
                                          "b -> Y",
                                          "text: ab -> X"));
  EXPECT_EQ(
      page.Json(),
      R"([{"target":"h2:1","action":"replace","content":"<h2>X</h2>"},)"
      R"({"target":"table:1","action":"replace","content":"<table style=\"border:1px solid\"><tr><td><p>X)"
      R"(</p></td></tr></table>"},{"target":"li:1","action":"replace","content":"<li><p>Y</p></li>"},)"
      R"({"target":"div:2","action":"replace","content":"<div style=\"position:absolute;left:300px;top:40px\">)"
      R"(X<!-- ink --></div>"}])");
}

// A match outside of what is seen is brought into view; so is a change that is chosen in the list.
TEST(FindInPage, BringsMatchesIntoView) {
  PageWorld& page = PageWorld::Warm();
  std::string content;
  for (int i = 0; i < 300; ++i)
    content += "<p id=\"p:" + std::to_string(i) + "\">" + (i % 100 == 99 ? "ab" : "line") + "</p>";
  page.Show(Page(content));
  const auto isInView = [&page] {
    return page
        .Script(
            "(() => { const r = document.querySelector('.current').getBoundingClientRect();"
            "return r.top >= 0 && r.bottom <= innerHeight; })()")
        .toBool();
  };
  for (int i = 0; i < 3; ++i) {
    page.Find("ab");
    EXPECT_TRUE(isInView()) << i;
  }
  page.Script("scrollTo(0, 0)");
  EXPECT_FALSE(isInView());
  page.view().GoToHighlightPosition();
  EXPECT_TRUE(WaitUntil(isInView));
  page.Replace("ab", "X");
  page.Script("scrollTo(0, 0)");
  page.view().ShowChange(0);
  EXPECT_TRUE(WaitUntil([&] { return page.Script("scrollY").toInt() > 1000; }));
}

// The engine's letters and names are ours, one by one: the window must not find what the terminal does not.
TEST(FindInPage, KnowsTheLettersAndNamesOfTheCore) {
  PageWorld& page = PageWorld::Warm();
  std::string codes;
  for (char32_t code = 0x80; code < 0x110000; ++code) {
    if (code == 0xA0 || code == 0x130 || (code >= 0xD800 && code < 0xE000)) continue;
    const auto lower = static_cast<char32_t>(u_tolower(static_cast<UChar32>(code)));
    if (lower != code) codes += std::to_string(code) + ":" + std::to_string(lower) + ",";
  }
  EXPECT_EQ(page.Text("(() => { let out = ''; for (let code = 0x80; code < 0x110000; ++code) {"
                      "if (code === 0xA0 || code === 0x130 || (code >= 0xD800 && code < 0xE000)) continue;"
                      "const low = new quill.TextPattern(String.fromCodePoint(code), false).codes[0];"
                      "if (low !== code) out += `${code}:${low},`; } return out; })()"),
            codes);
  std::string references =
      "&amp;amp; &apos; &check; &nosuch; &#233; &#xE9; &#150; &#0; &#x110000; &#65 &; &#; &Amp; ";
  for (unsigned code = 1; code < 0x3000; ++code) {
    if (const htmlEntityDesc* entity = htmlEntityValueLookup(code))
      references += std::string("&") + entity->name + "; ";
  }
  for (unsigned code = 0x21; code < 0x3000; ++code) {
    std::string typed;
    content::AppendUtf8(typed, code);
    if (htmlEntityValueLookup(code) == nullptr && code != 0x2713) continue;
    page.Show(Paragraph(references));
    page.ReplaceAll(typed, "z{}", true);
    const auto edit = online::ReplaceInPage(Paragraph(references), typed, "z{}", true);
    ASSERT_TRUE(edit.ok());
    ASSERT_EQ(page.Json(), edit->json) << typed;
  }
}

}  // namespace
}  // namespace quill::ui
