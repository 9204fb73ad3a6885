#include "platform/posix/preferred_languages.h"

#include <cstdlib>
#include <string_view>

namespace quill::platform {
namespace {

std::string_view Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string_view Locale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (const std::string_view value = Variable(name); !value.empty()) return value;
  }
  return {};
}

bool IsPlainC(std::string_view locale) {
  return locale.empty() || locale == "POSIX" || locale == "C" || locale.starts_with("C.");
}

}  // namespace

std::vector<std::string> LanguagesOfEnvironment() {
  const std::string_view locale = Locale();
  if (IsPlainC(locale)) return {};
  std::vector<std::string> languages;
  for (std::string_view list = Variable("LANGUAGE"); !list.empty();) {
    const std::size_t end = list.find(':');
    if (end != 0) languages.emplace_back(list.substr(0, end));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  languages.emplace_back(locale);
  return languages;
}

}  // namespace quill::platform
