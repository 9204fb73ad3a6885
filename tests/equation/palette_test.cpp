#include <gtest/gtest.h>

#include "equation_world.h"
#include "tools/equation_palette.h"

namespace quill::test {
namespace {

// A button that puts a faulty text into the formula would make its user look for a mistake of their own.
TEST(EquationPalette, EveryConstructIsSetByBothEditions) {
  NEEDS_MATHJAX();
  for (const tools::EquationGroup& group : tools::EquationPalette()) {
    for (const tools::EquationConstruct& construct : group.constructs) {
      const std::string latex(construct.latex);
      EXPECT_EQ(EquationWorld::Warm().Show(latex, tools::EquationForm::Native), "") << latex;
      EXPECT_EQ(EquationWorld::Warm().Show(latex, tools::EquationForm::Picture), "") << latex;
    }
  }
}

}  // namespace
}  // namespace quill::test
