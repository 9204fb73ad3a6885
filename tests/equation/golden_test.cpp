#include <gtest/gtest.h>

#include <QtGlobal>
#include <fstream>
#include <iterator>

#include "equation_world.h"
#include "formulas.h"
#include "tools/equation.h"

namespace quill::test {
namespace {

std::string GoldenPath(std::string_view name) {
  return QUILL_GOLDEN "/" + std::string(name) + ".html";
}

std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Golden : public testing::TestWithParam<NamedFormula> {};

// What lands in a page is pinned, formula by formula, on a page that has set all the others before.
// QUILL_WRITE_GOLDEN=1 writes the files anew.
TEST_P(Golden, FormulaBecomesTheSameMathMl) {
  NEEDS_MATHJAX();
  const Result<std::string> mathMl = EquationWorld::Warm().Native(std::string(GetParam().latex));
  ASSERT_TRUE(mathMl.ok()) << mathMl.error();
  const std::string html = tools::ConvertMathMLToONMathML(*mathMl) + "\n";
  const std::string path = GoldenPath(GetParam().name);
  if (qEnvironmentVariableIsSet("QUILL_WRITE_GOLDEN")) std::ofstream(path, std::ios::binary) << html;
  EXPECT_EQ(html, Read(path));
}

INSTANTIATE_TEST_SUITE_P(Formulas, Golden,
                         testing::ValuesIn(IntroductoryFormulas().begin(), IntroductoryFormulas().end()),
                         [](const auto& made) { return std::string(made.param.name); });

// Everything that MathJax asks for while it sets the formulas is there: nothing was forgotten in the
// installation, and nothing was asked of anybody else.
TEST(GoldenRun, NeedsNothingThatIsNotInstalled) {
  NEEDS_MATHJAX();
  for (const NamedFormula& formula : IntroductoryFormulas()) {
    EXPECT_EQ(EquationWorld::Warm().Show(std::string(formula.latex), tools::EquationForm::Native), "");
    EXPECT_EQ(EquationWorld::Warm().Show(std::string(formula.latex), tools::EquationForm::Picture), "");
  }
  EXPECT_EQ(EquationWorld::Warm().view().MissingFiles().join(' ').toStdString(), "");
  EXPECT_EQ(EquationWorld::Warm().view().RefusedAddresses().join(' ').toStdString(), "");
}

// A page that was used before gives the same as a new one, also after a formula that defines a command, takes
// a label or brings a package.
TEST(GoldenRun, WarmPageGivesWhatANewOneGives) {
  NEEDS_MATHJAX();
  const std::string formulas[] = {R"(\newcommand{\x}{42}\x)",
                                  R"(\x)",
                                  R"(y \label{a} \tag{1})",
                                  R"(\sqrt{y} \label{a})",
                                  R"(\require{mhchem}\ce{H2O})",
                                  R"(\ce{H2O})",
                                  R"(\unicode[.9,.1][monospace]{x263a})",
                                  R"(\unicode{x263a})",
                                  R"(\begin{pmatrix} a \\ b \end{pmatrix})"};
  EquationWorld& warm = EquationWorld::Warm();
  for (const std::string& formula : formulas) {
    EquationWorld fresh;
    const Result<std::string> expected = fresh.Native(formula);
    const Result<std::string> native = warm.Native(formula);
    EXPECT_EQ(native.ValueOr("failed"), expected.ValueOr("failed")) << formula;
    const Result<ui::EquationPicture> picture = warm.Picture(formula);
    const Result<ui::EquationPicture> expectedPicture = fresh.Picture(formula);
    ASSERT_TRUE(picture.ok() && expectedPicture.ok()) << formula;
    EXPECT_EQ(picture->dataUrl, expectedPicture->dataUrl) << formula;
  }
}

}  // namespace
}  // namespace quill::test
