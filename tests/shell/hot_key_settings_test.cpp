#include "shell/hot_key_settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quill::shell {
namespace {

using platform::KeyCombination;
using platform::ParseKeyCombination;

/// The keys in use as one text: "InsertDateClick=Control+Option+Shift+D …", in the order of registration.
std::string InUse(std::string_view setting) {
  std::string text;
  for (const HotKeyAssignment& one : AssignedHotKeys(setting)) {
    text.append(text.empty() ? "" : " ").append(one.row->action.substr(std::string_view("MenuItem").size()));
    text.append("=").append(platform::KeyCombinationText(one.keys));
  }
  return text;
}

const CommandRow& Row(std::string_view action) {
  return *FindCommand(action);
}

constexpr char kCopy[] = "CopyPlainTextClick=Control+Option+Shift+C";
constexpr char kDate[] = "InsertDateClick=Control+Option+Shift+D";
constexpr char kTime[] = "InsertTimeClick=Control+Option+Shift+T";
constexpr char kTitle[] = "SetToPageTitle=Control+Option+Shift+L";
constexpr char kPalette[] = " CommandPaletteClick=Control+Option+Shift+P";
const std::string kDefaults = std::string(kCopy) + " " + kDate + " " + kTime + " " + kTitle + kPalette;

// Without a word in the settings the keys of the manual work; the four oldest are registered in their old
// order.
TEST(HotKeySettings, TheKeysOfTheManualWorkByDefault) {
  EXPECT_EQ(InUse(""), kDefaults);
  EXPECT_EQ(HotKeyOwner("", *ParseKeyCombination("Control+Option+Shift+T")), &Row("MenuItemInsertTimeClick"));
  EXPECT_EQ(HotKeyOwner("", *ParseKeyCombination("Control+Option+T")), nullptr);
}

// A changed, an added and a switched-off key; what is not understood leaves the rest alone.
TEST(HotKeySettings, EntriesOverrideTheDefaults) {
  EXPECT_EQ(
      InUse("MenuItemUpperCaseClick=Control+Option+U;MenuItemInsertDateClick=;MenuItemCopyPlainTextClick=F9"),
      std::string("CopyPlainTextClick=F9 ") + kTime + " " + kTitle + " UpperCaseClick=Control+Option+U" +
          kPalette);
  EXPECT_EQ(InUse(";;MenuItemNoSuchThing=F9;MenuItemInsertDateClick;=F8;MenuItemInsertDateClick=Shift+Q;"
                  "MenuItemUpperCaseClick=F7=F6"),
            kDefaults);
  EXPECT_EQ(InUse("MenuItemInsertDateClick=F9;MenuItemInsertDateClick=F8"),
            std::string(kCopy) + " InsertDateClick=F8 " + kTime + " " + kTitle + kPalette);
}

// One press must not run two actions: who asks for a key has it, and before all who has it by default only.
TEST(HotKeySettings, AKeyBelongsToOneAction) {
  const std::string taken =
      "MenuItemUpperCaseClick=Control+Option+Shift+D;MenuItemNewPageClick=F9;"
      "MenuItemLowerCaseClick=F9";
  EXPECT_EQ(InUse(taken), std::string(kCopy) + " " + kTime + " " + kTitle +
                              " NewPageClick=F9 UpperCaseClick=Control+Option+Shift+D" + kPalette);
  EXPECT_EQ(HotKeyOwner(taken, *ParseKeyCombination("Control+Option+Shift+D")),
            &Row("MenuItemUpperCaseClick"));
}

// What the options window stores is the difference to the defaults, without what it does not know.
TEST(HotKeySettings, ChangesAreStoredInTheShortestForm) {
  const CommandRow& date = Row("MenuItemInsertDateClick");
  const CommandRow& upper = Row("MenuItemUpperCaseClick");
  std::string setting = WithHotKey("rubbish;MenuItemNoSuchThing=F9", date, ParseKeyCombination("F8"));
  EXPECT_EQ(setting, "MenuItemInsertDateClick=F8");
  setting = WithHotKey(setting, upper, ParseKeyCombination("F8"));
  EXPECT_EQ(setting, "MenuItemInsertDateClick=;MenuItemUpperCaseClick=F8");
  setting = WithHotKey(setting, upper, std::nullopt);
  EXPECT_EQ(setting, "MenuItemInsertDateClick=");
  EXPECT_EQ(WithHotKey(setting, date, DefaultHotKey(date)), "");
  EXPECT_EQ(WithHotKey("", upper, DefaultHotKey(date)),
            "MenuItemInsertDateClick=;MenuItemUpperCaseClick=Control+Option+Shift+D");
}

// A slip on the command line is refused; a file of a newer version, with actions of its own, is not.
TEST(HotKeySettings, OnlyTextsOfTheFormAreAccepted) {
  for (const char* text : {"", "MenuItemUpperCaseClick=Control+Option+U",
                           "MenuItemUpperCaseClick=", "MenuItemOfTomorrow=F9;MenuItemUpperCaseClick:=ctrl+u"})
    EXPECT_TRUE(AcceptsHotKeysSetting(text)) << text;
  for (const char* text : {";", "MenuItemUpperCaseClick", "=F9", "MenuItemUpperCaseClick=U", "A=F9;",
                           "A B=F9", "A=F9,B=F8", "A=F9=F8"})
    EXPECT_FALSE(AcceptsHotKeysSetting(text)) << text;
}

// Whatever stands in the file: no key is given twice, and storing what was read changes nothing.
TEST(HotKeySettings, AnyTextGivesEachKeyOnce) {
  constexpr std::string_view kPieces[] = {"MenuItemUpperCaseClick",
                                          "MenuItemInsertDateClick",
                                          "MenuItemNewPageClick",
                                          "=",
                                          "=",
                                          ";",
                                          ";",
                                          "Control",
                                          "+",
                                          "Control+Option+Shift+D",
                                          "F9",
                                          "Q",
                                          "\xff",
                                          "",
                                          "\0x"};
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string setting;
    for (unsigned i = random() % 14; i > 0; --i) setting += kPieces[random() % std::size(kPieces)];
    std::vector<std::string> keys;
    for (const HotKeyAssignment& one : AssignedHotKeys(setting))
      keys.push_back(platform::KeyCombinationText(one.keys));
    std::sort(keys.begin(), keys.end());
    ASSERT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end()) << setting;
    const CommandRow& row = Row("MenuItemNewPageClick");
    const std::string stored = WithHotKey(setting, row, std::nullopt);
    ASSERT_TRUE(AcceptsHotKeysSetting(stored)) << stored;
    ASSERT_EQ(WithHotKey(stored, row, std::nullopt), stored) << setting;
  }
}

// A settings file of a megabyte is no reason to hang.
TEST(HotKeySettings, LongTextsAreReadInOnePass) {
  std::string setting;
  for (int i = 0; i < 20000; ++i) setting += "NoAction=Control+Control+Control+Control+F9;;";
  EXPECT_EQ(InUse(setting + "MenuItemInsertDateClick="),
            std::string(kCopy) + " " + kTime + " " + kTitle + kPalette);
}

}  // namespace
}  // namespace quill::shell
