#include "tools/letter_case.h"

#include <gtest/gtest.h>

namespace quill::tools {
namespace {

// Toggling works on 8 bits of each UTF-16 unit: Latin-1 survives, the rest is known to be lost.
TEST(LetterCase, TogglesEightBitUnits) {
  EXPECT_EQ(ToggleCase("Hello, WORLD 1"), "hELLO, world 1");
  EXPECT_EQ(ToggleCase("é\u00A0É"), "é\u00A0É");
  EXPECT_EQ(ToggleCase("\u0141a\u0100b"), "AAB") << "U+0141 keeps 41, U+0100 keeps nothing";
  EXPECT_EQ(ToggleCase("\U0001F600"), "=") << "D83D keeps 3D, DE00 keeps nothing";
}

// Two separators in a row use the start up: the next word stays small.
TEST(LetterCase, CapitalizesAfterOneSeparator) {
  EXPECT_EQ(CapitalizeEachWord("hello world;again"), "Hello World;Again");
  EXPECT_EQ(CapitalizeEachWord("a  b"), "A  b");
  EXPECT_EQ(CapitalizeEachWord("a; b"), "A; b");
  EXPECT_EQ(CapitalizeEachWord("x\ny"), "X\nY");
  EXPECT_EQ(CapitalizeEachWord("a\u00A0b"), "A\u00A0b") << "a no-break space is no C white space";
  EXPECT_EQ(CapitalizeEachWord(""), "");
}

}  // namespace
}  // namespace quill::tools
