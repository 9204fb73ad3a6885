#pragma once
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace quill {

/// Replaces a file's contents so that whoever looks, and whenever the process dies, sees the old file or
/// the new one: a temporary file beside it with mode 0600, fsync, rename, fsync of the folder. The failure
/// names the file and the system's reason; the old file is then untouched and the temporary one gone.
Status<> WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes);

/// Removes what processes that were killed inside `WriteFileAtomically` left in a folder: its temporary
/// files that were last written at least `age` ago. Errors are ignored.
void RemoveTemporaryFiles(const std::filesystem::path& folder, std::chrono::seconds age);

/// The whole file as bytes. The failure names the file and the reason (missing, unreadable, a folder, more
/// than `limit` bytes).
Result<std::string> ReadFile(const std::filesystem::path& file, std::uintmax_t limit = UINTMAX_MAX);

}  // namespace quill
