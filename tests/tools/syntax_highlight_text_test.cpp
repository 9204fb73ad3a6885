#include "tools/syntax_highlight_text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <set>

#include "tools/find_highlighter.h"
#include "tools/highlight_oracles.h"
#include "tools/syntax_highlight.h"
#include "tools/syntax_highlight_tables.h"

namespace quill::tools {
namespace {

std::string RandomHtml(std::mt19937& random) {
  constexpr std::string_view kPieces[] = {" ",      " ",     "  ",           "\n",       "\r\n",   "\r",
                                          ">",      "<b>",   "<body",        "</body",   "&nbsp;", "&apos;",
                                          "&quot;", "&amp;", "&lt;",         "&",        "amp;",   "nbsp;",
                                          "x",      "é",     "\xE2\x80\xA8", "\xC2\x85", "\t"};
  std::string text;
  for (std::size_t n = random() % 24; n-- > 0;) text += kPieces[random() % std::size(kPieces)];
  return text;
}

// Code in which blanks or lines got lost is worse than code without colours.
TEST(SyntaxHighlightText, FastAndLiteralReadingsAgree) {
  std::mt19937 random(11);
  for (int i = 0; i < 30'000; ++i) {
    const std::string text = RandomHtml(random);
    ASSERT_EQ(CodeFileText(text), oracle::CodeFileText(text)) << ::testing::PrintToString(text);
    ASSERT_EQ(ReduceEntities(text), oracle::ReduceEntities(text)) << ::testing::PrintToString(text);
    ASSERT_EQ(ConvertToFit1651(text), oracle::ConvertToFit1651(text)) << ::testing::PrintToString(text);
  }
}

// What the oracle cannot show, since it reads the same rules: the results that a user would name.
TEST(SyntaxHighlightText, KeepsLinesAndIndentation) {
  EXPECT_EQ(CodeFileText("a\r\nb\n\nc"), "a\n \nb\n \nc");
  EXPECT_EQ(ReduceEntities("&amp;lt; &lt;"), "&lt; &lt;");
  EXPECT_EQ(ConvertToFit1651("<p>  \n<body>    x\n</body>  "),
            "<p>  \n<body>&nbsp;&nbsp;&nbsp;&nbsp;x<br>\n</body>  ");
}

// Frame and bold are one table cell with bold code, whatever else the page holds.
TEST(SyntaxHighlightText, FramesTheCode) {
  const std::string html = "<body><pre style=\"x\">a</pre></body>";
  EXPECT_EQ(FrameCode(html, {true, true, "#112233"}),
            "<body><table border=1 bgcolor='#112233'><tr><td><b><pre "
            "style=\"x\">a</pre></b></td></tr></table></body>");
  EXPECT_EQ(
      FrameCode(html, {true, false, "#112233"}),
      "<body><table border=1 bgcolor='#112233'><tr><td><pre style=\"x\">a</pre></td></tr></table></body>");
  EXPECT_EQ(FrameCode(html, {false, true}), "<body><b><pre style=\"x\">a</pre></b></body>");
  EXPECT_EQ(FrameCode(html, {}), html);
}

// A large file must take seconds, not minutes.
TEST(SyntaxHighlightText, LongCodeIsWorkedOffInOneGo) {
  const auto begin = std::chrono::steady_clock::now();
  for (const std::string_view piece : {" ", "\r\n", "> ", "&amp;", "<pre", "&", "<body"}) {
    std::string text = "<body";
    for (int i = 0; i < 500'000; ++i) text += piece;
    FrameCode(ConvertToFit1651(ReduceEntities(CodeFileText(text))), {true, true});
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

// The extension is that of the position, not of the language, from the last third of the list on.
TEST(SyntaxHighlightTables, ShiftTheLastExtensions) {
  EXPECT_EQ(SyntaxExtension("PL/SQL"), "sql");
  EXPECT_EQ(SyntaxExtension("TeX and LaTeX"), "text");
  EXPECT_EQ(SyntaxExtension("Transact-SQL"), "vb");
  EXPECT_EQ(SyntaxExtension("Visual Basic"), "xml");
  EXPECT_EQ(SyntaxExtension("XML"), std::nullopt);
  EXPECT_EQ(SyntaxExtension("Cobol"), std::nullopt);
  EXPECT_EQ(SyntaxLanguages().size(), 29u);
}

// Font and size come from free text; no word of the command may become two, or another option.
TEST(HighlightCommand, KeepsFreeTextInOneWord) {
  HighlightRequest request;
  request.language = "Object C";
  request.font = "-i \"x\" $(id)";
  request.fontSize = "11";
  EXPECT_EQ(HighlightCommand("/bin/h", request, "edit-xcode", "/tmp/a b"),
            (std::vector<std::string>{"/bin/h", "-i", "/tmp/a b/quillcode.m", "-o", "/tmp/a b/quillcode.html",
                                      "-q", "--replace-tabs=4", "--include-style", "--inline-css", "--style",
                                      "edit-xcode", "--font=-i \"x\" $(id)", "--font-size=11"}));
  request.hasLineNumbers = true;
  EXPECT_EQ(HighlightCommand("/bin/h", request, "edit-xcode", "/tmp").back(), "--line-numbers");
}

// A program that believed the head would show every accent as two wrong characters.
TEST(ClaimUtf8, ChangesTheHeadAlone) {
  EXPECT_EQ(ClaimUtf8("<meta charset=\"ISO-8859-1\"><body>ISO-8859-1"),
            "<meta charset=\"UTF-8\"><body>ISO-8859-1");
  EXPECT_EQ(ClaimUtf8("<body>ISO-8859-1"), "<body>ISO-8859-1");
}

// `quill doctor` tells which program is run and why; one in the current folder never is.
TEST(FindHighlighter, TakesTheFirstThatIsThere) {
  std::set<std::string> programs{"/usr/bin/highlight", "highlight", "./highlight", "bin/highlight"};
  const auto find = [&programs](std::string_view setting) {
    return FindHighlighter(
        "/fixed/highlight", setting, ":.:bin:/none:/usr/bin",
        [&programs](const std::filesystem::path& path) { return programs.contains(path.string()); });
  };
  EXPECT_EQ(find("").path, "/usr/bin/highlight");
  EXPECT_EQ(find("").origin, HighlighterOrigin::SearchPath);
  EXPECT_TRUE(find("/mine/highlight").isSettingUseless);
  programs.insert("/mine/highlight");
  EXPECT_EQ(find("/mine/highlight").path, "/mine/highlight");
  programs.insert("/fixed/highlight");
  EXPECT_EQ(find("/mine/highlight").origin, HighlighterOrigin::FixedPath);
  programs.clear();
  EXPECT_EQ(find("").origin, HighlighterOrigin::NotFound);
}

}  // namespace
}  // namespace quill::tools
