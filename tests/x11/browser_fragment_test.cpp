#include "platform/x11/browser_fragment.h"

#include <gtest/gtest.h>

#include <random>

#include "content/text_between.h"
#include "platform/x11/browser_style.h"

namespace quill::platform::x11 {
namespace {

std::string Fragment(std::string_view html) {
  return std::string(content::CutFragment(BrowserToApplicationHtml(html)).fragment);
}

// What browsers write must arrive as the core knows it from the application, and nothing the user wrote may
// be lost on the way.
TEST(BrowserFragment, ComesOutAsTheApplicationWritesIt) {
  const struct {
    const char* browser;
    const char* application;
  } cases[] = {
      {"<meta http-equiv='content-type' content='text/html; charset=utf-8'><p>a</p>", "<p>a</p>"},
      {"<!DOCTYPE html><html><head><title>t</title><style>p{}</style></head><body><p>a</p></body></html>",
       "<p>a</p>"},
      {"<table><thead><tr><th>h</th></tr></thead><tbody style=\"x:y\"><tr><td>1</td></tr></tbody></table>",
       "<table><tr><th>h</th></tr><tr><td>1</td></tr></table>"},
      {"a<br>b<br/>c<BR />d", "a<br>b<br>c<br>d"},
      {"<img src=\"a.png\" alt=\"x>y\"/>", "<img src=\"a.png\" alt=\"x&gt;y\">"},
      {"<hr><col span=2><input disabled><wbr>", "<hr/><col span=\"2\"/><input disabled=\"\"/><wbr/>"},
      {"<p>a</p><br class=\"Apple-interchange-newline\">", "<p>a</p>"},
      {"<div class=\"SCX1 OutlineElement Ltr\"><div class=\"x\"><p class=\"Paragraph\">a</p></div></div>",
       "<div class=\"x\"><p class=\"Paragraph\">a</p></div>"},
      {"<p>a<!--[if x]-->b<!-- c -- d --></p>", "<p>ab</p>"},
      {"<p>R&D &amp; 1&nbsp;&#8364; a<b> c< d \"q\"</p>",
       "<p>R&amp;D &amp; 1&nbsp;&#8364; a<b> c&lt; d \"q\"</p>"},
      {"<p style=\"orphans: 2; -webkit-text-stroke-width: 0px;\">a</p>", "<p>a</p>"},
      {"<p onclick @x=1 data-a='\"'>a</p>", "<p onclick=\"\" data-a=\"&quot;\">a</p>"},
      {"<p>a\x01\x0c\tb</p>", "<p>a\tb</p>"},
      // The normaliser puts quotes around what follows these words anywhere in the text.
      {"<a href=\"http://h/?width=3&amp;b=4\">value=1</a>",
       "<a href=\"http://h/?width&#61;3&amp;b=4\">value&#61;1</a>"},
      {"<script>if (a < b) '</p>'</script>a", "a"},
      {"<p>cut off <a href=\"x", "<p>cut off <a href=\"x\">"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Fragment(c.browser), c.application) << c.browser;
}

// What OneNote's own application (or this program) wrote must not be touched by a byte.
TEST(BrowserFragment, LeavesTheApplicationsFormAlone) {
  const std::string own =
      "<html>\r\n<body lang=en-US><!--StartFragment--><p style='a:b'>&nbsp;<br><!--EndFragment-->";
  EXPECT_EQ(BrowserToApplicationHtml(own), own);
}

// Computed styles are most of what a browser writes; the ones that show must survive, data addresses whole.
TEST(BrowserFragment, KeepsTheStylesThatShow) {
  const struct {
    const char* browser;
    const char* kept;
  } cases[] = {
      {"color: rgb(1, 2, 3); widows: 2; font-family: &quot;A; B&quot;, serif; letter-spacing: normal;",
       "color: rgb(1, 2, 3); font-family: &quot;A; B&quot;, serif"},
      {"background: url(data:image/png;base64,AA==); text-indent: 0px; text-indent: 2px",
       "background: url(data:image/png;base64,AA==); text-indent: 2px"},
      {"white-space-collapse: collapse; white-space-collapse: preserve; float: none",
       "white-space-collapse: preserve"},
      {"content: ';'; text-transform:none;;", "content: ';'"},
      {" ; ", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(DropSilentProperties(c.browser), c.kept) << c.browser;
}

// Any program can own the clipboard: broken markup must neither crash nor take long, and must stay inside the
// markers.
TEST(BrowserFragment, SurvivesBrokenMarkup) {
  const std::string_view pieces[] = {"<p",
                                     "<div class=\"OutlineElement\">",
                                     "</div>",
                                     "</",
                                     "<!--",
                                     "-->",
                                     "<script>",
                                     "</script",
                                     "=\"",
                                     "'",
                                     "style=\"a:b;",
                                     "&quot;",
                                     "&",
                                     "&#",
                                     ">",
                                     "/>",
                                     "<img",
                                     "\0",
                                     "width=",
                                     "<table>",
                                     "<tbody>",
                                     "\xFF",
                                     " ",
                                     "<!",
                                     "<?"};
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string html;
    for (unsigned n = random() % 12; n > 0; --n) html += pieces[random() % std::size(pieces)];
    const std::string document = BrowserToApplicationHtml(html);
    const content::FragmentParts parts = content::CutFragment(document);
    EXPECT_EQ(parts.fragment.find("<tbody"), std::string_view::npos) << html;
  }
  std::string deep;
  for (int i = 0; i < 300000; ++i) deep += "<div><";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_GT(BrowserToApplicationHtml(deep).size(), deep.size());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace quill::platform::x11
