#include "tools/image_text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "tools/insert_oracles.h"

namespace quill::tools {
namespace {

std::string RandomText(std::mt19937& random) {
  constexpr std::string_view kPieces[] = {
      " ",  " ",  "\r", "\n", "\r\n", "\r\n",     ".", "!",  "。",        "！",  "a",           "é",
      "中", "あ", "😀",  "\t", "\v",   "\xC2\xA0", "b", "．", "long word", "   ", "\xE3\x80\x81"};
  std::string text;
  for (std::size_t n = random() % 18; n-- > 0;) text += kPieces[random() % std::size(kPieces)];
  return text;
}

// Recognition puts blanks between Chinese characters; those between words are the user's.
TEST(ImageText, ClearsTheBlanksOfRecognition) {
  EXPECT_EQ(ClearExtraSpaces("中 文 text"), "中文 text");
  EXPECT_EQ(ClearExtraSpaces("end \nNext"), "end\nNext");
  EXPECT_EQ(ClearExtraSpaces("end \n中"), "end \n中");
  EXPECT_EQ(ClearExtraSpaces("中 "), "中 ");
}

// Lines become sentences again, and empty lines stay paragraphs.
TEST(ImageText, MergesLinesIntoParagraphs) {
  EXPECT_EQ(MergeAsParagraph("one\r\ntwo."), "one two.");
  EXPECT_EQ(MergeAsParagraph("A.\r\n\r\nB"), "A.\n\n\nB");
  EXPECT_EQ(MergeAsParagraph("Yes! Go"), "Yes!\n Go");
  EXPECT_EQ(MergeAsParagraph("一。 二"), "一。\n 二");
  EXPECT_EQ(MergeAsParagraph("\xFF\r\r"), "\xEF\xBF\xBD ");
  // The rule counts halves of characters: of the one that it skips, half is left.
  EXPECT_EQ(MergeAsParagraph("\rx\r😀."), oracle::MergeAsParagraph("\rx\r😀."));
}

// The fast ways take runs at once and never count units; a missed case eats letters.
TEST(ImageText, FastAndLiteralReadingsAgree) {
  std::mt19937 random(3);
  for (int i = 0; i < 60'000; ++i) {
    const std::string text = RandomText(random);
    ASSERT_EQ(ClearExtraSpaces(text), oracle::ClearExtraSpaces(text)) << ::testing::PrintToString(text);
    ASSERT_EQ(MergeAsParagraph(text), oracle::MergeAsParagraph(text)) << ::testing::PrintToString(text);
  }
}

// A page of recognised text must not take minutes because each step starts over.
TEST(ImageText, LongTextsAreWorkedOffInOneGo) {
  const auto begin = std::chrono::steady_clock::now();
  for (const std::string_view piece : {" ", "\r", "\r\n", ". ", "中 ", "<img", "&#1"}) {
    std::string text;
    for (int i = 0; i < 150'000; ++i) text += piece;
    ClearExtraSpaces(text);
    MergeAsParagraph(text);
    ImageAltText(text);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

// The text comes from the first picture alone, with its line ends.
TEST(ImageText, TakesTheAltTextOfTheFirstPicture) {
  EXPECT_EQ(ImageAltText(
                "<p>alt=\"no\"<img\r\nsrc=\"a.png\" alt=\"a&#13;&#10;b &amp;lt; &#x4e2d;\"><img alt=\"c\">"),
            "a\r\nb < 中");
  EXPECT_EQ(ImageAltText("<img src=\"a.png\"><img alt=\"c\">"), "");
  EXPECT_EQ(ImageAltText("<p alt=\"c\">"), "");
}

}  // namespace
}  // namespace quill::tools
