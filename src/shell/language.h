#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quill::shell {

/// A language that the program speaks.
struct Language {
  std::string_view tag;   ///< BCP 47: "en", "zh-Hans"
  std::string_view name;  ///< in the language itself
};

/// All languages, English first.
std::span<const Language> Languages();

/// The program's language: the setting when it names one, else the first of the user's preferred languages
/// (BCP 47 or POSIX names, "de-AT", "zh_CN.UTF-8") that the program speaks, else English. Chinese is written
/// in simplified characters here, so a wish for traditional ones ("zh-TW", "zh-Hant") is passed over.
std::string_view ChooseLanguage(std::string_view setting, const std::vector<std::string>& preferred);

/// True for "" and the tag of a language.
bool IsLanguageSetting(std::string_view text);

}  // namespace quill::shell
