#pragma once
#include <span>
#include <string>

#include "shell/string_table.h"
#include "tools/picture_list.h"

namespace quill::shell {

/// A path that is not in a table of pictures, and why, as one line for the user.
std::string SkippedText(const StringTable& strings, const tools::SkippedPath& skipped);

/// The alert about all of them: a sentence, then a line each for the first few and how many more there are.
/// Empty for none.
std::string SkippedMessage(const StringTable& strings, std::span<const tools::SkippedPath> skipped);

}  // namespace quill::shell
