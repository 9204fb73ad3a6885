#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace quill::files {

/// A language as macOS names it, with the script where a language has more than one: "zh_CN.UTF-8" is
/// "zh-Hans-CN", "pt_BR" is "pt-BR", "zh-TW" is "zh-Hant-TW". A name that has its script keeps it.
std::string LanguageWithScript(std::string_view name);

/// What OneNote calls its command that copies the link to a page, in a language named as macOS does; the
/// English title in a language that it does not speak.
std::string_view CopyLinkTitle(std::string_view language);

/// The same for the first of the user's languages, best first, as the system names them.
std::string_view CopyLinkTitle(const std::vector<std::string>& languages);

}  // namespace quill::files
