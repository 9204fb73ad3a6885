#include "online/headings.h"

#include <gtest/gtest.h>

#include <random>

#include "online/link_conversions.h"
#include "service_samples.h"

namespace quill::online {
namespace {

using namespace quill::samples;

std::string Block(const std::string& list) {
  return "<table border='0'><tr><td><h1>Contents</h1></td></tr><tr><td>" + list + "</td></tr></table>";
}

std::string Contents(const std::string& html) {
  const auto block = GenerateTOCHeadingsHtml(html, kLink, "Contents");
  if (block) return *block;
  return block.error() == PageProblem::NotXml ? "not XML" : "no headings";
}

std::string Swapped(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

// The list read step for step: recursively, by another parser, copied whole for every entry.
std::string LiteralList(xmlNode* parent, std::string list) {
  for (xmlNode* node = parent->children; node != nullptr; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    const std::string name = reinterpret_cast<const char*>(node->name);
    const std::size_t at = name.size() == 2 ? std::string("h1h2h3h4h5h6").find(name) : std::string::npos;
    const bool isInList = parent->type == XML_ELEMENT_NODE && xmlStrEqual(parent->name, BAD_CAST "ul");
    if (at != std::string::npos && !isInList) {
      std::string indent;
      for (std::size_t i = 0; i < at / 2 + 1; ++i) indent = indent + "&nbsp;&nbsp;&nbsp;&nbsp;";
      const std::string id = AttributeOf(node, "id");
      const std::string object = id.find(':') == std::string::npos ? "" : id.substr(id.find(':') + 1);
      list = list + "\n<p>" + indent + "- <a href=\"" + kParagraph +
             ConvertOnlineHtmlObjId2ClientUrlObjId(object) + "\">" +
             Swapped(Take(xmlNodeGetContent(node)), "\xC2\xA0", "&") + "</a></p>";
    }
    list = LiteralList(node, list);
  }
  return list;
}

// Content of a page in which anything is within anything.
std::string GrowContent(std::mt19937& random, int depth) {
  static const std::vector<std::string> kNames = {"div", "p",  "ul", "li", "span", "td",
                                                  "h1",  "h2", "h6", "h7", "H1",   "h10"};
  static const std::vector<std::string> kLeaves = {"R&amp;D",
                                                   "&nbsp;",
                                                   "\xC2\xA0",
                                                   "\r\n\t",
                                                   "<br />",
                                                   "<![CDATA[a < b]]>",
                                                   "<!-- InkNode is not supported -->"};
  std::string content;
  for (unsigned i = random() % 4; i-- > 0;) {
    if (depth == 0 || random() % 3 == 0) {
      content += kLeaves[random() % kLeaves.size()];
      continue;
    }
    const std::string& name = kNames[random() % kNames.size()];
    const std::string id = name + ":{8af5-" + std::to_string(random() % 9) + "}{62}";
    content += "<" + name + (random() % 4 == 0 ? "" : " id=\"" + id + "\"") + ">";
    content += GrowContent(random, depth - 1) + "</" + name + ">";
  }
  return content;
}

// What a reader sees as headings is listed and nothing else, with the text that the page shows.
TEST(HeadingsContents, ListThePagesHeadingsInTheirOrder) {
  const std::string page = Page(
      "<h1 id=\"h1:{a1}{69}\" data-tag=\"important\">R&amp;D <span "
      "style=\"font-weight:bold\">&lt;12&gt;</span></h1>"
      "<ul><h2 id=\"h2:{a2}{1}\">shape of a list</h2><li><h3 id=\"h3:{a3}{16}\">In a list</h3></li></ul>"
      "<table id=\"table:{t}{1}\"><tr><td><h2 id=\"h2:{a4}{255}\">In a cell<!-- ink --><br "
      "/></h2></td></tr></table>"
      "<object data-attachment=\"a.pdf\" /><h6>No id</h6><H1 id=\"h1:{a5}{1}\">none</H1>");
  const std::string step = "&nbsp;&nbsp;&nbsp;&nbsp;", link = kParagraph;
  EXPECT_EQ(Contents(page),
            Block("\n<p>" + step + "- <a href=\"" + link + "{a1}&45\">R&amp;D &lt;12&gt;</a></p>" +  //
                  "\n<p>" + step + step + step + "- <a href=\"" + link + "{a3}&10\">In a list</a></p>" +
                  "\n<p>" + step + step + "- <a href=\"" + link + "{a4}&FF\">In a cell</a></p>" +  //
                  "\n<p>" + step + step + step + step + step + step + "- <a href=\"" + link +
                  "{}&00\">No id</a></p>"));
}

// Headings within headings, in tables, in comments: whatever a page holds, the fast walk lists what the slow
// one does.
TEST(HeadingsContents, AreWhatAWordByWordReadingLists) {
  std::mt19937 random(20240318);
  int listed = 0;
  for (int i = 0; i < 3000; ++i) {
    const std::string page = Page(GrowContent(random, 7));
    const std::string contents = Contents(page);
    const XmlDocument document = ParseXml(Swapped(page, "&", "\xC2\xA0"));
    ASSERT_NE(document, nullptr) << page;
    const std::string list = LiteralList(reinterpret_cast<xmlNode*>(document.get()), "");
    ASSERT_EQ(contents, list.empty() ? "no headings" : Block(list)) << page;
    listed += contents == "no headings" ? 0 : 1;
  }
  EXPECT_GT(listed, 500);
}

// The user is told which of the two it is, and a page made to be deep cannot end the program.
TEST(HeadingsContents, SayWhyThereAreNone) {
  const auto nested = [](std::size_t depth) {
    std::string html;
    for (std::size_t i = 0; i < depth; ++i) html += "<h1>";
    html += "x";
    for (std::size_t i = 0; i < depth; ++i) html += "</h1>";
    return html;
  };
  EXPECT_EQ(Contents(Page("<p>Plain</p><ul><h1>x</h1></ul>")), "no headings");
  for (const std::string& html :
       {std::string(), std::string("<h1>open"), std::string("<h1 a=1>x</h1>"), nested(2001)})
    EXPECT_EQ(Contents(html), "not XML") << html.substr(0, 40);
  const std::string deep = Contents(nested(1990));
  EXPECT_EQ(std::ranges::count(deep, '\n'), 1990);
}

}  // namespace
}  // namespace quill::online
