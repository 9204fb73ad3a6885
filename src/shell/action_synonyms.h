#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "shell/command_table.h"
#include "shell/string_table.h"

namespace quill::shell {

/// The string-table key of the other words for an action: its title key with `syn` in place of `menu`. Empty
/// for a key that is no menu title.
std::string SynonymKey(std::string_view titleKey);

/// The other words for an action, separated by commas. With an argument, a page title tag's own name comes
/// first: its title shows a sign that nobody can type.
std::string Synonyms(const StringTable& strings, const CommandRow& row, std::optional<std::int64_t> argument);

}  // namespace quill::shell
