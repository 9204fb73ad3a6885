#include "tools/slides.h"

#include <gtest/gtest.h>

#include "content/element_lookup.h"

namespace quill::tools {
namespace {

content::WorkingDocument Parse(const std::string& body) {
  auto document = content::WorkingDocument::Parse("<quillText>" + body + "</quillText>");
  EXPECT_TRUE(document.ok()) << body;
  return std::move(*document);
}

// PowerPoint is only bothered when there is a heading for its macro to find.
TEST(Slides, RunTheMacroForAHeadingAnywhere) {
  EXPECT_EQ(MConvert2Ppt().Run(Parse("<p>a</p>")), SlidesStep::SayNoHeading);
  EXPECT_EQ(MConvert2Ppt().Run(Parse("<p>&lt;h1</p><h2>b</h2>")), SlidesStep::SayNoHeading);
  EXPECT_EQ(MConvert2Ppt().Run(Parse("<table><tr><td><h1>a</h1></td></tr></table>")), SlidesStep::RunScript);
  EXPECT_EQ(MConvert2Ppt().Run(Parse("<h1x>a</h1x>")), SlidesStep::Nothing);
}

// Each heading starts a slide; its text and the room it needs come from what stands below it.
TEST(Slides, HeadingsBecomeScriptLines) {
  const auto document = Parse("<p/><h1>A &amp;amp;\n<b>b</b>     c</h1><p>x</p><h1>later</h1>");
  MConvert2Ppt slides;
  slides.Run(document);
  const auto first = slides.Run_Heading1(document.Root());
  ASSERT_TRUE(first.has_value());
  EXPECT_EQ(first->text, "A &amp;b c");
  EXPECT_EQ(first->blocks, 1);
  slides.Run_Heading1(document.Root());
  EXPECT_FALSE(slides.Run_Heading1(document.Root().first_child()));
  EXPECT_EQ(slides.script(),
            "set oSlide = ActivePresentation.Slides.AddSlide 2, "
            "ActivePresentation.SlideMaster.CustomLayouts.Item(6)\n"
            "set oSlide = ActivePresentation.Slides.AddSlide 3, "
            "ActivePresentation.SlideMaster.CustomLayouts.Item(6)");
}

// Paragraphs without an empty one between are one block, whatever white space OneNote puts there.
TEST(Slides, CountsBlocksUpToTheNextHeading) {
  const auto blocks = [](const std::string& below) {
    const auto document = Parse("<h1>t</h1>" + below);
    return MConvert2Ppt::CountBlocks(content::FindElementNamed(document.tree(), "h1"));
  };
  EXPECT_EQ(blocks(""), 0);
  EXPECT_EQ(blocks("\r\n<p>a</p>\r\n<p>b</p><!-- c -->"), 1);
  EXPECT_EQ(blocks("<p>a</p><p>\xC2\xA0 </p><p/><p>b</p>"), 2);
  EXPECT_EQ(blocks("<p> <span><img src='a'/></span></p><p/><table/><ul/>"), 3);
  EXPECT_EQ(blocks("<p>a</p><h1>u</h1><p>b</p><p/><p>c</p>"), 1);
}

}  // namespace
}  // namespace quill::tools
