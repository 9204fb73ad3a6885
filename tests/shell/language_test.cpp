#include "shell/language.h"

#include <gtest/gtest.h>

#include "shell/string_table.h"

namespace quill::shell {
namespace {

struct Wish {
  const char* setting;
  std::vector<std::string> preferred;
  const char* expected;
};

// The user's own choice counts first, then the system's list; a language that is only similar must not be
// taken.
TEST(ChooseLanguage, TakesTheFirstThatIsSpoken) {
  const Wish wishes[] = {
      {"", {}, "en"},
      {"", {"de_AT.UTF-8"}, "de"},
      {"", {"pt-BR", "fr-CA", "de"}, "fr"},
      {"", {"zh_CN.UTF-8"}, "zh-Hans"},
      {"", {"zh-Hans-CN"}, "zh-Hans"},
      {"", {"zh"}, "zh-Hans"},
      {"", {"zh_TW", "ja"}, "ja"},
      {"", {"zh-Hant-HK"}, "en"},
      {"", {"zh-Hans-HK"}, "zh-Hans"},
      {"", {"den", "est", "C", "", "-", "es@euro"}, "es"},
      {"ja", {"de"}, "ja"},
      {"zh-Hans", {}, "zh-Hans"},
      {"tlh", {"de"}, "de"},
  };
  for (const Wish& wish : wishes) {
    EXPECT_EQ(ChooseLanguage(wish.setting, wish.preferred), wish.expected)
        << wish.setting << "|" << (wish.preferred.empty() ? "" : wish.preferred.front());
  }
}

// A window may still hold a text when the language changes under it.
TEST(StringTable, TextsStayValidWhenTheLanguageChanges) {
  StringTable strings;
  const std::string_view english = strings.Text("menuQuit");
  for (const Language& language : Languages()) strings.UseLanguage(language.tag);
  EXPECT_EQ(english, "Quit Quill Menu");
  strings.UseLanguage("tlh");
  EXPECT_EQ(strings.Text("menuQuit"), english) << "an unknown language is English";
  EXPECT_EQ(strings.Text("noSuchKey"), "noSuchKey");
}

}  // namespace
}  // namespace quill::shell
