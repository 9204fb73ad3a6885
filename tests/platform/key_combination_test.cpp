#include "platform/key_combination.h"

#include <gtest/gtest.h>

namespace quill::platform {
namespace {

// What people write into a settings file, from either system, means the same key and is stored in one form.
TEST(KeyCombination, IsReadInManyFormsAndWrittenInOne) {
  const struct {
    const char* text;
    const char* stored;
  } cases[] = {{"Control+Option+Shift+D", "Control+Option+Shift+D"},
               {"shift+alt+ctrl+d", "Control+Option+Shift+D"},
               {"SUPER+5", "Command+5"},
               {"Meta+Shift+space", "Shift+Command+Space"},
               {"f12", "F12"},
               {"Shift+F1", "Shift+F1"},
               {"Q+Control", "Control+Q"},
               {"Control+Control+Q", "Control+Q"}};
  for (const auto& c : cases) {
    const auto keys = ParseKeyCombination(c.text);
    ASSERT_TRUE(keys) << c.text;
    EXPECT_EQ(KeyCombinationText(*keys), c.stored);
    EXPECT_EQ(ParseKeyCombination(c.stored), keys) << c.stored;
  }
}

// A key that would be lost for typing, or that no keyboard has, must not become a hot key by a slip.
TEST(KeyCombination, WhatIsNoHotKeyIsRefused) {
  for (const char* text : {"",
                           "+",
                           "D",
                           "Shift+D",
                           "Shift+Space",
                           "Control",
                           "Control+",
                           "+D",
                           "Control++D",
                           "Control+D+E",
                           "Control+F21",
                           "Control+F0",
                           "F",
                           "Control+10",
                           "Control+Ü",
                           "Control D",
                           " Control+D",
                           "Hyper+D",
                           "Control+F1F2",
                           "Control+Enter"})
    EXPECT_FALSE(ParseKeyCombination(text)) << text;
}

// macOS knows keys by numbers: the four of the menu, and a few whose numbers follow no order.
TEST(KeyCombination, HasTheNumbersOfCarbon) {
  const struct {
    const char* text;
    std::uint32_t code, modifiers;
  } cases[] = {{"Control+Option+Shift+D", 2, 0x1A00},
               {"Control+Option+Shift+C", 8, 0x1A00},
               {"Control+Option+Shift+T", 17, 0x1A00},
               {"Control+Option+Shift+L", 37, 0x1A00},
               {"Command+0", 29, 0x100},
               {"Option+5", 23, 0x800},
               {"F1", 122, 0},
               {"Shift+Command+F12", 111, 0x300},
               {"Control+Space", 49, 0x1000}};
  for (const auto& c : cases) {
    const KeyCombination keys = ParseKeyCombination(c.text).value();
    EXPECT_EQ(CarbonKeyCode(keys), c.code) << c.text;
    EXPECT_EQ(CarbonModifiers(keys), c.modifiers) << c.text;
  }
}

}  // namespace
}  // namespace quill::platform
