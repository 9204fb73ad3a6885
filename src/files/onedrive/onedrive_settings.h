#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quill::files {

/// The folder in which the OneDrive client keeps one folder of settings per account: in Application Support,
/// or in the container of a client that came from the store. Nothing when neither is there. `userLibrary` is
/// the user's Library folder.
std::optional<std::filesystem::path> FindOneDriveSettings(const std::filesystem::path& userLibrary);

/// Whether an account of this name is one of work or school.
bool IsBusinessAccount(std::string_view accountName);

/// Whether a file in an account's folder describes a synced library. Names are compared exactly.
bool IsLibraryDescription(std::string_view fileName);

/// The local path in a library's description: what stands between `"/` and the next quote in the first line
/// that begins with "library =" or "libraryScope =", with its slash. "" without such a line, "/" when the
/// line holds no path. The bytes are UTF-8, or UTF-16 with the low byte first, either with or without a
/// byte-order mark. O(bytes).
std::string LibraryPathInIni(std::string_view bytes);

/// As above from a file; "" when it cannot be read.
std::string GetAUserOneDriveLibraryPathFromIniFile(const std::filesystem::path& file);

}  // namespace quill::files
