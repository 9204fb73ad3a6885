#include "shell/language.h"

#include <algorithm>

namespace quill::shell {
namespace {

constexpr Language kLanguages[] = {{"en", "English"},  {"de", "Deutsch"}, {"es", "Español"},
                                   {"fr", "Français"}, {"ja", "日本語"},  {"zh-Hans", "简体中文"}};

constexpr std::string_view kTraditionalChinese[] = {"hant", "tw", "hk", "mo"};

/// The parts of a language's name in lower case: "zh_Hant_TW.UTF-8" is zh, hant, tw.
std::vector<std::string> Subtags(std::string_view name) {
  std::vector<std::string> tags(1);
  for (const char c : name.substr(0, name.find_first_of(".@"))) {
    if (c == '-' || c == '_') {
      tags.emplace_back();
    } else {
      tags.back() += c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    }
  }
  return tags;
}

bool WantsTraditional(const std::vector<std::string>& tags) {
  if (std::find(tags.begin(), tags.end(), "hans") != tags.end()) return false;
  return std::any_of(tags.begin() + 1, tags.end(), [](const std::string& tag) {
    return std::find(std::begin(kTraditionalChinese), std::end(kTraditionalChinese), tag) !=
           std::end(kTraditionalChinese);
  });
}

/// The language for one wish; empty when the program does not speak it.
std::string_view Spoken(std::string_view wish) {
  const std::vector<std::string> tags = Subtags(wish);
  for (const Language& language : kLanguages) {
    const std::string_view base = language.tag.substr(0, language.tag.find('-'));
    if (tags.front() != base) continue;
    return base == "zh" && WantsTraditional(tags) ? std::string_view() : language.tag;
  }
  return {};
}

}  // namespace

std::span<const Language> Languages() {
  return kLanguages;
}

std::string_view ChooseLanguage(std::string_view setting, const std::vector<std::string>& preferred) {
  if (!setting.empty() && IsLanguageSetting(setting)) return Spoken(setting);
  for (const std::string& wish : preferred) {
    const std::string_view spoken = Spoken(wish);
    if (!spoken.empty()) return spoken;
  }
  return kLanguages[0].tag;
}

bool IsLanguageSetting(std::string_view text) {
  return text.empty() || std::any_of(std::begin(kLanguages), std::end(kLanguages),
                                     [text](const Language& language) { return language.tag == text; });
}

}  // namespace quill::shell
