#include "tools/word_count.h"

#include <gtest/gtest.h>

#include "tools/parsed_selection.h"

namespace quill::tools {
namespace {

using test::Parse;

std::string Counted(const std::string& inner) {
  auto document = Parse(inner);
  std::string numbers;
  for (const CountRow& row : RowsOf(CountWords(document.Root()))) numbers += std::to_string(row.value) + " ";
  return numbers;
}

// Order: paragraphs, characters without and with spaces, words, non-Asian, Asian, images.
TEST(WordCount, CountsTextParagraphsAndImages) {
  EXPECT_EQ(Counted("<p>Hello, world</p>"), "1 11 12 2 2 0 0 ");
  EXPECT_EQ(Counted("<p>中文abc</p>"), "1 5 5 3 1 2 0 ");
  EXPECT_EQ(Counted("<p>abc中文</p>"), "1 5 5 2 0 2 0 ") << "a run that an Asian character ends is dropped";
  EXPECT_EQ(Counted("<p> \t </p>"), "1 0 3 0 0 0 0 ");
  EXPECT_EQ(Counted("<p>a&#13;b&#9;c\nd</p>"), "1 4 7 4 4 0 0 ");
  EXPECT_EQ(Counted("<p>ÿé x\u00A0y 😀 ž</p>"), "1 8 11 5 2 3 0 ") << "units, and a no-break space joins";
  EXPECT_EQ(Counted("lost<span>lost</span><!--no--><div><p>a</p><p>b<!--no--></p></div>"), "2 2 2 2 2 0 0 ");
  EXPECT_EQ(Counted("<p><span>a<a>b</a></span><img><p>no</p></img></p>"), "1 2 2 2 2 0 1 ");
  EXPECT_EQ(Counted("<span><p>a</p></span><p>a<br/>b</p>"), "2 3 3 3 3 0 0 ") << "br is the paragraph";
  EXPECT_EQ(Counted("<table><tr><td><p>a</p></td><td><![CDATA[b c]]></td></tr></table>"), "2 3 4 3 3 0 0 ");
  EXPECT_EQ(Counted(""), "0 0 0 0 0 0 0 ");
}

// The size of a table, and the list as it is copied.
TEST(TableInformation, CountsDirectRowsAndTheFirstRowWithCells) {
  auto document = Parse(
      "<div><table><tr><th>h</th></tr><tbody><tr><td/></tr></tbody><tr><td/><td><table/></td></tr>"
      "<tr><td/></tr></table></div>");
  const auto same = [](std::string_view key) { return std::string(key); };
  EXPECT_EQ(TextOf(RowsOf(CountTable(document.Root())), same), "Columns\t2\nRows\t3\n");
  EXPECT_TRUE(RowsOf(CountTable(Parse("<p>a</p>").Root())).empty());
  EXPECT_EQ(TextOf(RowsOf(WordCounts{1, 2, 3, 4, 5, 6}), same),
            "Paragraphs\t1\nCharacter_No_Spaces\t2\nCharacter_With_Spaces\t3\nWords\t9\nNon_Asian_Words\t4\n"
            "Asian_Words\t5\nImages\t6\n");
}

}  // namespace
}  // namespace quill::tools
