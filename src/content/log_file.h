#pragma once
#include <filesystem>
#include <string_view>

#include "base/result.h"

namespace quill::content {

/// Adds a line to a log that keeps about its last 1000 lines; the first write has no line break.
///
/// A file that cannot be read as UTF-8 text is renamed to `<name>.bad` first, so that its history is not
/// lost. The failure names the file and the reason; the old file is then untouched. O(file).
Status<> AppendLogLine(const std::filesystem::path& file, std::string_view line);

}  // namespace quill::content
