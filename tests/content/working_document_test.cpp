#include "content/working_document.h"

#include <gtest/gtest.h>

#include "content/element_lookup.h"
#include "content/html_normalizer.h"
#include "content/oracles.h"
#include "content/xml_strictness.h"

namespace quill::content {
namespace {

std::string InRoot(std::string_view content) {
  return std::string("<?xml version=\"1.0\"?><quillText>").append(content).append("</quillText>");
}

std::string Rewritten(std::string_view content) {
  const auto document = WorkingDocument::Parse(InRoot(content));
  return document ? XmlToHtml(document->Xml()) : "refused: " + document.error();
}

// What a parser lets pass comes out as something else than the user selected; libxml2 agrees on every line.
TEST(WorkingDocument, RefusesWhatIsNotWellFormed) {
  for (const char* content : {"&nbsp;",
                              "a & b",
                              "&lt",
                              "&#0;",
                              "&#xFFFE;",
                              "&#xD800;",
                              "&#x110000;",
                              "&#X41;",
                              "&#;",
                              "a<b",
                              "</p>",
                              "<p>",
                              "<p></P>",
                              "<p",
                              "<p a>",
                              "<p a=1/>",
                              "<p a='<'/>",
                              "<p a='&x;'/>",
                              "<p a='1'b='2'/>",
                              "<p a='1' a='2'/>",
                              "<p a='1/>",
                              "]]>",
                              "<!--a--b-->",
                              "<!--a--->",
                              "<!-- a",
                              "<![CDATA[a",
                              "<!a>",
                              "<?xml a?>",
                              "<?1?>",
                              "<?a",
                              "< p/>",
                              "<1/>",
                              "<a:b:1/>",
                              "\x01",
                              "\xEF\xBF\xBF",
                              "\xED\xA0\x80",
                              "\xC0\x80",
                              "\xFF",
                              "<p/ >",
                              "</ p>",
                              "<img src=x.png //>"}) {
    EXPECT_TRUE(FindXmlFault(InRoot(content)).has_value()) << content;
    EXPECT_FALSE(oracle::IsWellFormed(InRoot(content))) << content;
  }
  for (const char* xml : {"", " ", "text", "<a/>b", "<a/><b/>", " <?xml version='1.0'?><a/>", "<?xml?><a/>",
                          "<?xml version='2.0'?><a/>", "<?xml version='1.0' standalone='x'?><a/>"}) {
    EXPECT_TRUE(FindXmlFault(xml).has_value()) << xml;
    EXPECT_FALSE(oracle::IsWellFormed(xml)) << xml;
  }
}

// Undeclared prefixes, odd names and later versions occur in pasted text and must not cost the user a
// command.
TEST(WorkingDocument, AcceptsOddButWellFormedText) {
  for (const char* content :
       {"<o:p>a</o:p>", "<a:/>", "<a:b:c/>", "<a::1/>", "<a\xCC\x80/>", "<\xC3\xA9 \xE4\xB8\xAD=''/>",
        "<p a = '>'/>", "<p\n></p >", "&#x10FFFF;", "\x7F\xC2\x85", "<?a?><?b c?>", "<!--a-b-->", "]]&gt;"}) {
    EXPECT_TRUE(WorkingDocument::Parse(InRoot(content)).ok()) << content;
    EXPECT_TRUE(oracle::IsWellFormed(InRoot(content))) << content;
  }
  EXPECT_TRUE(
      WorkingDocument::Parse("<?xml version='1.1' encoding=\"UTF-8\" standalone='yes'?><!--a--><a/>\n<?b?>")
          .ok());
}

// The log and --explain show where a fragment went wrong.
TEST(WorkingDocument, SaysWhereTheFaultIs) {
  EXPECT_EQ(WorkingDocument::Parse("<a>&nbsp;</a>").error(), "an unknown entity or a bare \"&\" at byte 3");
}

// Walkers may use the stack; a document type declaration could make a small text huge.
TEST(WorkingDocument, RefusesDeepNestingAndDoctypes) {
  const auto nested = [](std::size_t depth) {
    std::string xml;
    for (std::size_t i = 0; i < depth; ++i) xml += "<b>";
    xml += "x";
    for (std::size_t i = 0; i < depth; ++i) xml += "</b>";
    return xml;
  };
  const auto deepest = WorkingDocument::Parse(nested(kMaxElementDepth));
  ASSERT_TRUE(deepest.ok());
  EXPECT_EQ(deepest->Xml(), "<?xml version=\"1.0\"?>" + nested(kMaxElementDepth));
  EXPECT_FALSE(WorkingDocument::Parse(nested(kMaxElementDepth + 1)).ok());
  EXPECT_FALSE(WorkingDocument::Parse("<!DOCTYPE a [<!ENTITY b 'c'>]><a>b</a>").ok());
}

// The text goes into an HTML page: `<td/>` or `<br></br>` there would change what the user sees.
TEST(WorkingDocument, WritesWhatSurvivesAnHtmlPaste) {
  const std::pair<const char*, const char*> cases[] = {
      {"<td></td><p/><br></br><IMG/><hr>x</hr>", "<td></td><p></p><br/><IMG/><hr>x</hr>"},
      {"&lt;&lt;Date&gt;&gt; &amp; ' \"", "&lt;&lt;Date&gt;&gt; &amp; ' \""},
      {"a\r\nb\rc&#13;d\te", "a\nb\nc&#13;d\te"},
      {"<p a='&quot;&lt;&gt;&amp;&#10;&#13;&#9;' b=\"'\r\n\"/>",
       "<p a=\"&quot;&lt;>&amp;&#10;&#13;&#9;\" b=\"' \"></p>"},
      {"<!-- a & b --><![CDATA[<p> & ]]><?php  x ?><?y?>", "<!-- a & b --><![CDATA[<p> & ]]><?php x ?><?y?>"},
      {"<?a b\r\nc\rd?>", "<?a b\nc\nd?>"},
      {"<o:p xmlns:o='u'> </o:p>  ", "<o:p xmlns:o=\"u\"> </o:p>  "},
      {"&#160;&#233;&#x1F600;", "&nbsp;\xC3\xA9\xF0\x9F\x98\x80"},
  };
  for (const auto& [content, expected] : cases) EXPECT_EQ(Rewritten(content), expected);
}

// A command may give names that are longer than all that was parsed: the text must grow in their middle.
TEST(WorkingDocument, WritesNamesBeyondTheExpectedSize) {
  auto document = WorkingDocument::Parse("<a/>");
  ASSERT_TRUE(document.ok());
  for (std::size_t length = 1; length < 200; ++length) {
    const std::string name(length, 'x');
    document->Root().set_name(name.c_str());
    EXPECT_EQ(document->Xml(), "<?xml version=\"1.0\"?><" + name + "></" + name + ">");
  }
}

// Commands keep nodes while the document changes hands.
TEST(WorkingDocument, KeepsItsNodesWhenMoved) {
  auto parsed = WorkingDocument::Parse("<a b='c'>d</a>");
  ASSERT_TRUE(parsed.ok());
  const pugi::xml_node root = parsed->Root();
  WorkingDocument document = std::move(*parsed);
  EXPECT_TRUE(document.Root() == root);
  root.first_child().set_value("x < y");
  EXPECT_EQ(document.Xml(), "<?xml version=\"1.0\"?><a b=\"c\">x &lt; y</a>");
}

// Tools look for the first table and count cells by these; a wrong order or depth edits the wrong table.
TEST(ElementLookup, FindsInDocumentOrder) {
  const auto document = WorkingDocument::Parse("<r>t<a><b i='1'/></a><b i='2'/><B/><b i='3'/><!--b--></r>");
  ASSERT_TRUE(document.ok());
  const pugi::xml_node root = document->Root();
  EXPECT_STREQ(FindElementNamed(root, "b").attribute("i").value(), "1");
  EXPECT_STREQ(FirstChildElementNamed(root, "b").attribute("i").value(), "2");
  EXPECT_EQ(CountChildElementsNamed(root, "b"), 2);
  EXPECT_FALSE(FindElementNamed(root, "r"));
  EXPECT_FALSE(FindElementNamed(root.first_element_by_path("a"), "B"));
  EXPECT_FALSE(FindElementNamed(pugi::xml_node(), "b"));
}

}  // namespace
}  // namespace quill::content
