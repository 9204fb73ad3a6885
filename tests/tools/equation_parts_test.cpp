#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "shell/string_table.h"
#include "tools/equation_palette.h"
#include "tools/latex_page.h"
#include "tools/mathjax_folder.h"
#include "tools/recent_formulas.h"

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

TEST(LatexPage, TakesMathJaxFromTheGivenAddress) {
  const std::string native = LatexHtmlFromStr("$$x$$", EquationForm::Native, "https://mirror.example");
  EXPECT_NE(
      native.find("'https://mirror.example/npm/mathjax@2.7.1/unpacked/MathJax.js?config=TeX-MML-AM_CHTML'"),
      native.npos);
  EXPECT_NE(native.find("inlineMath: [['$','$'], ['\\\\(','\\\\)']]"), native.npos)
      << "two backslashes in a script";
  EXPECT_NE(native.find("<span id='equationspan'>$$x$$</span>"), native.npos);
  const std::string picture = LatexHtmlFromStr("$$x$$", EquationForm::Picture, "https://mirror.example");
  EXPECT_NE(picture.find("'https://mirror.example/npm/mathjax@3/es5/tex-svg.js'"), picture.npos);
  EXPECT_NE(picture.find("<span id='equation'>$$x$$</span>"), picture.npos);
  EXPECT_EQ(picture.find("SCALE"), picture.npos);
}

// "a<b" is a comparison, and a formula from somewhere else brings no elements with it.
TEST(LatexPage, FormulaIsTextInThePage) {
  const std::string page = LatexHtmlFromStr("a<b & c>d <img>", EquationForm::Native, "");
  EXPECT_NE(page.find(">a&lt;b &amp; c&gt;d &lt;img&gt;<"), page.npos);
}

TEST(LatexPage, KnowsFormulasThatChangeLaterOnes) {
  EXPECT_TRUE(ChangesLaterFormulas(R"(\newcommand{\R}{\mathbb{R}} \R)"));
  EXPECT_TRUE(ChangesLaterFormulas(R"(x\def\a{b})"));
  EXPECT_TRUE(ChangesLaterFormulas(R"(def \let\a=b)"));
  EXPECT_TRUE(ChangesLaterFormulas(R"(\unicode[Times]{x263a})"));
  EXPECT_FALSE(ChangesLaterFormulas(R"(\left(\frac{let}{def}\right) \lambda)"));
}

TEST(MathJaxFolder, ServesOnlyFilesBelowIt) {
  EXPECT_EQ(MathJaxFile("/m", "/npm/mathjax@3/es5/tex-svg.js"), fs::path("/m/mathjax3/es5/tex-svg.js"));
  EXPECT_EQ(MathJaxFile("/m", "/npm/mathjax@2.7.1/unpacked/fonts/HTML-CSS/MathJax_Main-Bold.woff"),
            fs::path("/m/mathjax2/fonts/HTML-CSS/MathJax_Main-Bold.woff"));
  for (const char* other :
       {"", "/", "/etc/passwd", "/npm/mathjax@3/", "/npm/mathjax@3/../../etc/passwd",
        "/npm/mathjax@3//etc/passwd", "/npm/mathjax@3/es5/..", "/npm/mathjax@3/.hidden",
        "/npm/mathjax@3/a\\..\\b", "/npm/mathjax@4/es5/tex-svg.js", "/npm/mathjax@3/%2e%2e/x"}) {
    EXPECT_FALSE(MathJaxFile("/m", other)) << other;
  }
}

TEST(MathJaxFolder, IsFoundOnlyWithBothEditions) {
  const fs::path root = fs::path(testing::TempDir()) / "mathjax_folder_test";
  fs::remove_all(root);
  const fs::path place = root / "share/quillmenu/mathjax";
  fs::create_directories(place / "mathjax2");
  fs::create_directories(place / "mathjax3/es5");
  std::ofstream(place / "mathjax2/MathJax.js") << "x";
  EXPECT_NE(FindMathJax(root / "bin").ValueOr("none"), place);
  std::ofstream(place / "mathjax3/es5/tex-svg.js") << "x";
  EXPECT_EQ(FindMathJax(root / "bin").ValueOr("none"), place);
  const Result<fs::path> elsewhere = FindMathJax(root / "else/bin");
  ASSERT_FALSE(elsewhere.ok());
  EXPECT_NE(elsewhere.error().find((root / "else/share/quillmenu/mathjax").string()), std::string::npos);
  fs::remove_all(root);
}

TEST(RecentFormulas, KeepsTheLastTwentyOnce) {
  RecentFormulas recent;
  for (int i = 0; i < 25; ++i) recent.Add("x_" + std::to_string(i));
  recent.Add("x_10");
  recent.Add("");
  ASSERT_EQ(recent.Items().size(), RecentFormulas::kMost);
  EXPECT_EQ(recent.Items()[0], "x_10");
  EXPECT_EQ(recent.Items()[1], "x_24");
  EXPECT_EQ(recent.Items().back(), "x_5");
}

// A settings file knows neither control characters nor every byte; what comes back is what went in.
TEST(RecentFormulas, SurviveTheirText) {
  RecentFormulas recent;
  for (const char* formula :
       {"a|b", "100\\%|%7C", "\\frac{a}\n\t{b}\r\n", " \\text{größer 數學 😀} ", "\xff\xfe", "%"}) {
    recent.Add(formula);
  }
  const std::string text = recent.ToText();
  for (const char c : text) EXPECT_TRUE(c > 0x20 && c < 0x7f) << int(c);
  EXPECT_EQ(RecentFormulas::FromText(text).Items(), recent.Items());
  EXPECT_EQ(RecentFormulas::FromText("a||%zz%4|a|b%").Items(),
            (std::vector<std::string>{"a", "%zz%4", "b%"}));
}

TEST(EquationPalette, HasTitlesAndNoConstructTwice) {
  const shell::StringTable strings;
  std::set<std::string_view> seen;
  for (const EquationGroup& group : EquationPalette()) {
    EXPECT_TRUE(strings.Has(group.titleKey)) << group.titleKey;
    for (const EquationConstruct& construct : group.constructs) {
      EXPECT_TRUE(seen.insert(construct.latex).second) << construct.latex;
      EXPECT_FALSE(construct.glyph.empty()) << construct.latex;
    }
  }
  EXPECT_GT(seen.size(), 80u);
}

TEST(EquationPalette, PutsTheSelectionWhereItBelongs) {
  const auto placed = [](std::string_view latex, std::string_view selection) {
    const PlacedConstruct made = Place({"", latex}, selection);
    return made.before + "[" + made.selected + "]" + made.after;
  };
  EXPECT_EQ(placed(R"(\frac{□}{□})", ""), R"(\frac{[□]}{□})");
  EXPECT_EQ(placed(R"(\frac{□}{□})", "a+b"), R"(\frac{a+b}{[□]})");
  EXPECT_EQ(placed(R"(\sqrt{□})", "x□"), R"(\sqrt{x□}[])");
  EXPECT_EQ(placed(R"(\alpha)", "x"), R"(\alpha [])");
  EXPECT_EQ(placed(R"(\mathbb{R})", ""), R"(\mathbb{R}[])");
}

}  // namespace
}  // namespace quill::tools
