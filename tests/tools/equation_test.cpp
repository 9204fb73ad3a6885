#include "tools/equation.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "content/unicode_text.h"

namespace quill::tools {
namespace {

TEST(GetPlainLaTeX, TakesTheFirstPairThatHoldsSomething) {
  struct Case {
    const char* text;
    const char* plain;
  };
  const Case cases[] = {
      {"$$x$$", "x"},
      {"\\[x\\]", "x"},
      {"\\{x\\}", "x"},
      {"$x$", "x"},
      {"one $$a$$ and $$b$$", "a"},
      {"$c$ before $$a$$", "a"},
      {"\\{b\\} before \\[a\\]", "a"},
      {"$$$$ then \\[a\\]", "a"},
      {"$$\n a \n$$", "\n a \n"},
      {"$$a", ""},
      {"\\]a\\[", ""},
      {"a + b", ""},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(GetPlainLaTeX(c.text), c.plain) << c.text;
}

// Read word by word, character by character, without regard for speed: what the fast one is held against.
std::string ConvertedSlowly(const std::string& mathMl) {
  std::u32string text;
  for (std::string_view line : content::SplitAtNewlines(mathMl)) {
    line = content::TrimWhite(line);
    for (std::size_t i = 0; i < line.size();) {
      const content::DecodedChar decoded = content::DecodeUtf8(line, i);
      text += decoded.code;
      i += decoded.length;
    }
  }
  std::string tagged;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != U'<') {
      content::AppendUtf8(tagged, text[i]);
    } else if (i + 2 < text.size()) {
      if (text[i + 1] == U'/' && text[i + 2] == U'm') {
        tagged += "</mml:";
        i = i + 1;
      } else if (text[i + 1] == U'm') {
        tagged += "<mml:";
      }
    }
  }
  std::string declared;
  for (std::size_t i = 0; i < tagged.size(); ++i) {
    declared += tagged[i];
    if (i >= 4 && tagged.substr(i - 4, 5) == "xmlns") declared += ":mml";
  }
  return "<!--[if mathML]>" + declared + "<![endif]-->";
}

TEST(ConvertMathMLToONMathML, PrefixesTagsAndNamespace) {
  EXPECT_EQ(
      ConvertMathMLToONMathML("<math xmlns=\"http://www.w3.org/1998/Math/MathML\">\n  <mi>x</mi>\r\n</math>"),
      "<!--[if mathML]><mml:math xmlns:mml=\"http://www.w3.org/1998/Math/MathML\"><mml:mi>x</mml:mi>"
      "</mml:math><![endif]-->");
  EXPECT_EQ(ConvertMathMLToONMathML("<none></none><m"), "<!--[if mathML]>none>/none>m<![endif]-->");
  EXPECT_EQ(ConvertMathMLToONMathML(""), "<!--[if mathML]><![endif]-->");
}

// Pieces that meet in every order, with breaks and blanks of every kind between them.
TEST(ConvertMathMLToONMathML, AgreesWithTheLiteralReading) {
  const std::vector<std::string> pieces = {
      "<",  "</", "m",  "<m", "</m", "mi>", ">", "/",  "xmlns",  "xml",    "ns", " ",    "\t",     "\n",
      "\r", "\f", "\v", "a",  "é",   "😀",   "=", "\"", "\u2028", "\u00a0", "<<", "&lt;", "\u0085", "\u2029"};
  std::mt19937 random(20240517);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (unsigned left = random() % 12; left > 0; --left) text += pieces[random() % pieces.size()];
    ASSERT_EQ(ConvertMathMLToONMathML(text), ConvertedSlowly(text)) << testing::PrintToString(text);
  }
}

TEST(PictureHtml, TakesPngInBase64Alone) {
  EXPECT_EQ(PictureHtml("data:image/png;base64,iVBORw0K+/==").ValueOr(""),
            "<img src='data:image/png;base64,iVBORw0K+/=='>");
  EXPECT_EQ(PictureHtml("data:image/png;base64,iVBO", {30, 12}).ValueOr(""),
            "<img src='data:image/png;base64,iVBO' width='30' height='12'>");
  for (const char* other : {"", "data:image/png;base64,", "data:image/svg+xml;base64,iVBO",
                            "xdata:image/png;base64,iVBO", "data:image/png;base64,iVBO' onerror='x",
                            "data:image/png;base64,iVBO\"", "data:image/png;base64,iV>BO"}) {
    EXPECT_FALSE(PictureHtml(other).ok()) << other;
  }
}

}  // namespace
}  // namespace quill::tools
