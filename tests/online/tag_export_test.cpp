#include "online/tag_export.h"

#include <gtest/gtest.h>

#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

std::string Exported(TagFormat format, const std::string& html) {
  const auto text = GenerateTags2Content(format, html, kLink);
  if (text) return *text;
  return text.error() == PageProblem::NotXml ? "not XML" : "no tags";
}

const std::string kTagged = Page(
    "<p id=\"p:{a1}{40}\" data-tag=\"to-do:completed\">Call \"Ren&#233;e\" &amp; Tom</p>"
    "<ul><li id=\"li:{a2}{41}\" data-tag=\"to-do\">One<ul><li><span "
    "data-tag=\"question\">Two</span></li></ul></li></ul>"
    "<img id=\"img:{a3}{7}\" data-tag=\"important,to-do:completed,idea\" alt=\"\" />"
    "<h2 id=\"h2:{a4}{9}\" data-tag=\"a&amp;b\">]]&gt; &lt;x&gt;<![CDATA[<y>]]></h2>"
    "<td id=\"td:{a5}{1}\" data-tag=\"to-do-priority-1:completed\"></td><p data-id=\"x\">plain</p>");

// Every kind of element that OneNote tags, and the marks that a spreadsheet sees of it.
TEST(TagExport, WritesALineForEveryTaggedElement) {
  const std::string link = kParagraph;
  EXPECT_EQ(Exported(TagFormat::Csv, kTagged),
            "1,to-do,\"Call \"Ren&#233;e\" &amp; Tom\"," + link + "{a1}&28\n" + "0,to-do,\"OneTwo\"," + link +
                "{a2}&29\n" +                               //
                "0,question,\"Two\"," + link + "{}&00\n" +  //
                "1,important,to-do,\"\"," + link + "{a3}&07\n" + "0,a&amp;b,\"]]&gt; &lt;x&gt;<y>\"," + link +
                "{a4}&09\n" + "1,to-do-priority-1,\"\"," + link + "{a5}&01");
}

// What reads the file gets back links with "&" and texts with markup in them.
TEST(TagExport, WritesXmlThatAParserReads) {
  const XmlDocument document = ParseXml(Exported(TagFormat::Xml, kTagged));
  ASSERT_NE(document, nullptr);
  std::vector<std::string> seen;
  for (xmlNode* tag = xmlDocGetRootElement(document.get())->children; tag != nullptr; tag = tag->next) {
    if (tag->type != XML_ELEMENT_NODE) continue;
    seen.push_back(AttributeOf(tag, "complete") + "|" + AttributeOf(tag, "name") + "|" +
                   Take(xmlNodeGetContent(tag)) + "|" +
                   AttributeOf(tag, "href").substr(std::string(kParagraph).size()));
  }
  EXPECT_THAT(seen,
              testing::ElementsAre("1|to-do|Call \"Ren&#233;e\" &amp; Tom|{a1}&28", "0|to-do|OneTwo|{a2}&29",
                                   "0|question|Two|{}&00", "1|important,to-do||{a3}&07",
                                   "0|a&b|]]&gt; &lt;x&gt;<y>|{a4}&09", "1|to-do-priority-1||{a5}&01"));
}

TEST(TagExport, SaysWhyThereIsNone) {
  EXPECT_EQ(Exported(TagFormat::Csv, Page("<p>plain</p>")), "no tags");
  EXPECT_EQ(Exported(TagFormat::Xml, "<p data-tag=to-do>x</p>"), "not XML");
}

}  // namespace
}  // namespace quill::online
