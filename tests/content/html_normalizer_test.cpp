#include "content/html_normalizer.h"

#include <gtest/gtest.h>

#include "content/text_between.h"

namespace quill::content {
namespace {

struct Case {
  const char* given;
  const char* expected;
};

/// The normalised fragment without declaration and root.
std::string Normalized(std::string_view fragment) {
  return std::string(TextBetween(HtmlToXml(fragment), "<?xml version=\"1.0\"?><quillText>", "</quillText>"));
}

void ExpectAll(const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(Normalized(c.given), c.expected) << c.given;
}

// The clipboard writes most attributes without quotes; each form of bareness once, and what must stay bare.
TEST(HtmlToXml, QuotesBareValuesOfTheKnownAttributes) {
  ExpectAll({
      {"<td width=50 valign=top>", "<td width=\"50\" valign=\"top\">"},
      {"<td width='50' ALIGN=left Border=1>", "<td width='50' ALIGN=left Border=\"1\">"},
      {"<li value=1\r\nstyle='x'>", "<li value=\"1\"\r\nstyle='x'>"},
      {"<p xml:lang=de>", "<p xml:lang=\"de\">"},
      {"<td width= 50>", "<td width=\"\" 50>"},
      {"<td width=\xC2\xA0'5'>", "<td width=\xC2\xA0'5'>"},
      {"a width=5", "a width=5"},
  });
}

// The quotes that one attribute puts behind a value are seen by the attributes that come after it in the
// order of quoting, and only the first of each name in a run of characters counts.
TEST(HtmlToXml, QuotesAttributesThatShareOneValue) {
  ExpectAll({
      {"type=width= ", "type=\"width=\" "},
      {"width=type= ", "width=\"type=\"\"\" "},
      {"width=1width=2 ", "width=\"1width=2\" "},
      {"width=\"1\"width=2 ", "width=\"1\"width=2 "},
      {"border=1lang=2>", "border=\"1lang=\"2\"\">"},
  });
}

// Recognised text of a picture is full of "=": taking it for attributes would tear the alt text apart.
TEST(HtmlToXml, LeavesEqualSignsInAltTextsAlone) {
  ExpectAll({
      {"<img src=\"a.png\" alt=\"x=1\">", "<img src=\"a.png\" alt=\"x=1\"/>"},
      {"<img ALT=\"width=5 height=6\" width=7>", "<img ALT=\"width=5 height=6\" width=\"7\"/>"},
      {"<img alt=\"\"><img alt=\"a=b\">", "<img alt=\"\"/><img alt=\"a=b\"/>"},
      {"<img alt=\"width=5 >", "<img alt=\"width=\"5\" />"},
      {"width=alt=\"p q=r\"", "width=\"alt=\"p\" q&=;r\""},
      {"alt=\"x alt=\" y=\"", "alt=\"x alt=\" y=\""},
      {"alt=a&=;b ", "alt=\"a=b\" "},
  });
}

// `br` and `img` come open; the first `<br` alone decides whether breaks are closed already.
TEST(HtmlToXml, ClosesBreaksAndImages) {
  ExpectAll({
      {"<p>a<br>b<br>c</p>", "<p>a<br/>b<br/>c</p>"},
      {"<p>a<br/>b<br>c</p>", "<p>a<br/>b<br>c</p>"},
      {"a<br \t\xC2\xA0/>b<br>", "a<br \t\xC2\xA0/>b<br>"},
      {"<BR>a<br/>", "<BR>a<br/>"},
      {"<BR>a<br>", "<BR/>a<br/>"},
      {"<BR>", "<BR/>"},
      {"width=<br />", "width=\"<br\" //>"},
      {"<img src=x.png />", "<img src=x.png //>"},
      {"<br<img>", "<br<img//>"},
      {"<br>a<img", "<br/>a<img"},
  });
}

// Word's list markers come as conditional blocks, which no XML parser takes.
TEST(HtmlToXml, RemovesConditionalBlocks) {
  ExpectAll({
      {"<p><![if !supportLists]>\xE2\x80\xA2 <![endif]>text</p>", "<p>text</p>"},
      {"<![if a]>1<![endif]>2<![if b]>3<![endif]>4", "24"},
      {"<![i<![if x<![endif]>f y<![endif]>z", "z"},
      {"<![if<![if x<![endif]> y<![endif]>z", "z"},
      {"a<![if b", "a<![if b"},
      {"<![IF a]>b<![endif]>", "<![IF a]>b<![endif]>"},
      {"<![if a]><img alt=\"x=1\"><![endif]><img width=5 alt=\"y=2\"><BR>&nbsp;",
       "<img width=\"5\" alt=\"y=2\"/><BR/>\xC2\xA0"},
  });
}

// An empty selection and both spellings of the no-break space must survive the way there and back.
TEST(XmlToHtml, GivesBackTheFragment) {
  const Case cases[] = {{"", ""},
                        {"a&nbsp;b", "a&nbsp;b"},
                        {"a\xC2\xA0\xC3\xA9", "a&nbsp;\xC3\xA9"},
                        {"<p>x<br></p>", "<p>x<br/></p>"}};
  for (const Case& c : cases) EXPECT_EQ(XmlToHtml(HtmlToXml(c.given)), c.expected);
  EXPECT_EQ(XmlToHtml("<?xml version=\"1.0\"?><quillText/>"), "");
}

// Head and tail are put around the result again: a wrong cut loses the page's styles or doubles them.
TEST(Fragment, IsCutAtTheFirstMarkersAndJoinedAgain) {
  const std::string html = "<html><!--StartFragment--><p>a</p><!--EndFragment--></html>";
  const FragmentParts parts = CutFragment(html);
  EXPECT_EQ(parts.fragment, "<p>a</p>");
  EXPECT_EQ(JoinFragment(parts.head, parts.fragment, parts.tail), html);
  EXPECT_EQ(StripFragmentMarkers(html + html), "<html><p>a</p></html><html><p>a</p></html>");

  const FragmentParts unmarked = CutFragment("<p>a</p>");
  EXPECT_EQ(std::string(unmarked.head).append(unmarked.fragment).append(unmarked.tail), "");
  const FragmentParts open = CutFragment("h<!--StartFragment-->a<!--startfragment-->");
  EXPECT_EQ(open.head, "h");
  EXPECT_EQ(std::string(open.fragment).append(open.tail), "");
  EXPECT_EQ(TextBetween("abab", "b", ""), "ab");
  EXPECT_EQ(TextBetween("a", "ab", ""), "");
}

}  // namespace
}  // namespace quill::content
