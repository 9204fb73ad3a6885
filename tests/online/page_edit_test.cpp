#include "online/page_edit.h"

#include <gtest/gtest.h>

#include <random>

#include "online/page_oracle.h"
#include "online/service_samples.h"

namespace quill::online {
namespace {

using samples::Page;

/// The changes line by line, "target: content".
std::string Changes(const std::string& content, const std::string& find, const std::string& replacement,
                    bool matchesCase = false) {
  const auto edit = ReplaceInPage(Page(content), find, replacement, matchesCase);
  if (!edit.ok()) return "failed: " + edit.error();
  std::string lines;
  if (edit->json.empty()) return lines;
  for (const auto& change : nlohmann::json::parse(edit->json))
    lines += change.at("target").get<std::string>() + ": " + change.at("content").get<std::string>() + "\n";
  return lines;
}

// What is sent is the element as it came, byte for byte: tags, styles, sources and references would be lost
// otherwise. Only ids go, which the service gives anew.
TEST(PageEdit, SendsTheElementAsItCame) {
  EXPECT_EQ(
      Changes("<p id=\"p:{a}{40}\" data-id='x' data-tag=\"to-do:completed\" style='margin:0'>R&amp;D&nbsp;"
              "caf&eacute; &hearts; &#8364;<br /><span id=\"span:{s}{1}\" style=\"color:red\">old</span> "
              "\xC2\xA0<img id=\"img:{i}{2}\" src=\"https://g/$value?a=1&amp;b=2\" "
              "data-fullres-src=\"u\" /></p><p id=\"p:{b}{41}\">other</p>",
              "old", "<new> & \"more\""),
      "p:{a}{40}: <p data-id='x' data-tag=\"to-do:completed\" style='margin:0'>R&amp;D&nbsp;caf&eacute; "
      "&hearts; &#8364;<br /><span style=\"color:red\">&lt;new&gt; &amp; \"more\"</span> \xC2\xA0<img "
      "src=\"https://g/$value?a=1&amp;b=2\" data-fullres-src=\"u\" /></p>\n");
}

// A match keeps the formatting of its first character, and never joins what is shown apart.
TEST(PageEdit, ReadsAcrossFormattingAndNotAcrossBlocks) {
  EXPECT_EQ(Changes("<p id=\"p:1\">on<b>e t</b><a href=\"u\">wo</a>.</p>", "one two", "X"),
            "p:1: <p>X<b></b><a href=\"u\"></a>.</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">x <b>a</b>b</p>", "ab", "X"), "p:1: <p>x <b>X</b></p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">a<!-- ink -->b</p>", "ab", "X"), "p:1: <p>X<!-- ink --></p>\n");
  for (const char* apart :
       {"<p id=\"p:1\">a</p><p id=\"p:2\">b</p>", "<p id=\"p:1\">a<br />b</p>",
        "<p id=\"p:1\">a<br></br>b</p>",
        "<ul id=\"ul:1\"><li id=\"li:1\">a<ul id=\"ul:2\"><li id=\"li:2\">b</li></ul></li></ul>",
        "<table id=\"table:1\"><tr><td>a</td><td>b</td></tr></table>",
        "<p id=\"p:1\">a<img src=\"x\" />b</p>",
        "<p id=\"p:1\">a<object data-attachment=\"f\">a</object>b</p>"})
    EXPECT_EQ(Changes(apart, "ab", "X"), "") << apart;
}

// White space is found and replaced as it is shown, however it is written.
TEST(PageEdit, TakesWhiteSpaceAsItIsShown) {
  EXPECT_EQ(Changes("<p id=\"p:1\">one\r\n\t two</p>", "one two", "X"), "p:1: <p>X</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">one&nbsp;two \xC2\xA0one&#160;two</p>", "one two", "X"),
            "p:1: <p>X \xC2\xA0X</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">one&nbsp;two</p>", "one\xC2\xA0two", "X"), "p:1: <p>X</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">one <b> two</b></p>", "one ", "X"), "p:1: <p>X<b>two</b></p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">\n one \n</p>", " one", "X"), "");
  EXPECT_EQ(Changes("<p id=\"p:1\">\n one \n</p>", "one ", "X"), "");
}

// Nothing is found inside a reference, and what it stands for is found.
TEST(PageEdit, TakesReferencesForTheirCharacters) {
  EXPECT_EQ(Changes("<p id=\"p:1\">&amp;amp; caf&eacute; &hearts; R&D &#x2026;</p>", "amp", "X"),
            "p:1: <p>&amp;X; caf&eacute; &hearts; R&D &#x2026;</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">caf&eacute; caf&#201; caf\xC3\xA9</p>", "CAF\xC3\x89", "X"),
            "p:1: <p>X X X</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">&hearts;</p>", "hearts", "X"), "");
  EXPECT_EQ(Changes("<p id=\"p:1\">wait&hellip;</p>", "\xE2\x80\xA6", "."), "p:1: <p>wait.</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">R&D &lt;b></p>", "&d <B>", "X"), "p:1: <p>RX</p>\n");
}

// The case is that of the languages' letters, one by one.
TEST(PageEdit, IgnoresTheCaseLetterByLetter) {
  const std::string page = "<p id=\"p:1\">\xCE\xA3\xCE\xAF\xCF\x82 \xD0\x96\xD1\x83\xD0\xBA</p>";  // Σίς Жук
  EXPECT_EQ(Changes(page, "\xD0\xB6\xD0\xA3\xD0\x9A", "X"), "p:1: <p>\xCE\xA3\xCE\xAF\xCF\x82 X</p>\n");
  EXPECT_EQ(Changes(page, "\xD0\xB6\xD0\xA3\xD0\x9A", "X", true), "");
  EXPECT_EQ(Changes("<p id=\"p:1\">\xC4\xB0i</p>", "I", "X"), "p:1: <p>\xC4\xB0X</p>\n");
  EXPECT_EQ(Changes("<p id=\"p:1\">STRASSE</p>",
                    "stra\xC3\x9F"
                    "e",
                    "X"),
            "");
}

// The element that is sent is the smallest that the service replaces, and no element is sent twice.
TEST(PageEdit, SendsTheSmallestElementThatCanBeReplaced) {
  const std::pair<const char*, const char*> kCases[] = {
      {"<table id=\"t:1\"><tr id=\"tr:1\"><td id=\"td:1\"><p id=\"p:1\">ab</p><table "
       "id=\"t:2\"><tr><td>ab</td>"
       "</tr></table></td></tr></table>",
       "t:1"},
      {"<ol id=\"ol:1\"><li id=\"li:1\"><p id=\"p:1\">ab</p></li><li id=\"li:2\">x</li></ol>", "li:1"},
      {"<ol id=\"ol:1\"><li id=\"li:1\">x<ol id=\"ol:2\"><li id=\"li:2\"><h2 "
       "id=\"h2:1\">ab</h2></li></ol></li></ol>",
       "li:2"},
      {"<ol id=\"ol:1\"><li id=\"li:1\">ab<ol id=\"ol:2\"><li id=\"li:2\">ab</li></ol></li></ol>", "li:1"},
      {"<ol id=\"ol:1\"><li>ab</li></ol>", "ol:1"},
      {"<ul id=\"ul:1\"><li id=\"li:1\">x<table id=\"t:1\"><tr><td>ab</td></tr></table></li></ul>", "t:1"},
      {"<div id=\"div:2\">ab<p id=\"p:1\">x</p></div>", "div:2"},
      {"<div id=\"div:2\">x<p id=\"p:1\">ab</p></div>", "p:1"},
      {"<h6 id=\"h6:1\"><span>ab</span></h6><p>ab</p>", "h6:1"},
      {"ab", ""},
      {"<p id=\"\">ab</p><table><tr><td id=\"td:1\"><p id=\"p:1\">ab</p></td></tr></table>", ""}};
  for (const auto& [content, target] : kCases) {
    const auto edit = ReplaceInPage(Page(content), "AB", "X", false);
    ASSERT_TRUE(edit.ok());
    EXPECT_EQ(edit->changeCount, *target == '\0' ? 0u : 1u) << content;
    EXPECT_EQ(edit->json.empty() ? "" : nlohmann::json::parse(edit->json)[0].at("target"), target) << content;
  }
}

// What a script does with the result: the counts, and no array when there is nothing to send.
TEST(PageEdit, CountsMatchesAndElements) {
  const std::string page = Page("<p id=\"p:1\">aaaaa</p><p id=\"p:2\">b</p><p id=\"p:3\">aa</p>");
  const auto edit = ReplaceInPage(page, "aa", "aaa", true);
  ASSERT_TRUE(edit.ok());
  EXPECT_EQ(edit->matchCount, 3u);
  EXPECT_EQ(edit->changeCount, 2u);
  EXPECT_EQ(edit->json, R"([{"target":"p:1","action":"replace","content":"<p>aaaaaaa</p>"},)"
                        R"({"target":"p:3","action":"replace","content":"<p>aaa</p>"}])");
  for (const char* nothing : {"", "x", "\xC3", "Week"}) {
    const auto none = ReplaceInPage(page, nothing, "y", false);
    ASSERT_TRUE(none.ok());
    EXPECT_EQ(none->matchCount, 0u);
    EXPECT_EQ(none->json, "");
  }
}

// Pages come with an "&" by itself; what is put behind it must not make a character of the two.
TEST(PageEdit, KeepsAnAmpersandWhatItIs) {
  const std::string page = "<p id=\"p:1\">R&D, &#D, R&amp;D</p>";
  EXPECT_EQ(Changes(page, "D", "amp;"), "p:1: <p>R&amp;amp;, &#amp;, R&amp;amp;</p>\n");
  EXPECT_EQ(Changes(page, "D", "65;"), "p:1: <p>R&amp;65;, &amp;#65;, R&amp;65;</p>\n");
}

// What no page may hold does not get into one; a page that is none is refused.
TEST(PageEdit, KeepsPagesWellFormed) {
  EXPECT_EQ(Changes("<p id=\"p:1\">ab</p>", "b", std::string("1\0\x01\xFF\xEF\xBF\xBF\t2", 10)),
            "p:1: <p>a1\t2</p>\n");
  for (const char* html :
       {"", "<p id=\"p:1\">ab", "<p id=p>ab</p>", "<p id=\"p:1\" id=\"p:2\">ab</p>", "\xC3"})
    EXPECT_FALSE(ReplaceInPage(html, "ab", "X", false).ok()) << html;
}

// Whatever is within what: the quick reading does what the slow one does, and the service takes it.
TEST(PageEdit, DoesWhatAWordByWordReadingDoes) {
  std::mt19937 random(20240322);
  const auto bytes = [&random](std::size_t most) {
    std::string seed(random() % most, '\0');
    for (char& c : seed) c = static_cast<char>(random());
    return seed;
  };
  std::size_t matches = 0;
  std::size_t across = 0;
  for (int i = 0; i < 4000; ++i) {
    const std::string html = oracle::GrowPage(bytes(100));
    const std::string find = oracle::GrowWords(bytes(3) + char(random() % 8)),
                      replacement = oracle::GrowWords(bytes(4));
    const bool matchesCase = random() % 2 == 0;
    const auto edit = ReplaceInPage(html, find, replacement, matchesCase);
    ASSERT_TRUE(edit.ok()) << edit.error() << html;
    const auto expected = oracle::Replaced(oracle::RawPage(html), find, replacement, matchesCase);
    ASSERT_EQ(edit->matchCount, expected.matches) << find << " in " << html;
    ASSERT_EQ(oracle::Fault(html, edit->json, expected), "") << find << " -> " << replacement << " in\n"
                                                             << html << "\n"
                                                             << edit->json;
    matches += edit->matchCount;
    across += edit->changeCount > 1 ? 1 : 0;
  }
  EXPECT_GT(matches, 2000u);
  EXPECT_GT(across, 100u);
}

}  // namespace
}  // namespace quill::online
