#pragma once
#include <filesystem>
#include <string_view>
#include <vector>

namespace quill::files {

/// OneNote's own folders below a Library folder.
inline constexpr std::string_view kOneNoteUserDataFolder =
    "Containers/com.microsoft.onenote.mac/Data/Library/Application Support/Microsoft User Data";
inline constexpr std::string_view kOneNoteDataFolder =
    "Containers/com.microsoft.onenote.mac/Data/Library/Application Support/Microsoft User Data/OneNote";
inline constexpr std::string_view kOneNoteVersionFolder =
    "Containers/com.microsoft.onenote.mac/Data/Library/Application Support/Microsoft User Data/OneNote/15.0";

/// What a search for section files begins at.
enum class StoreLevel {
  Top,    ///< the version folder: the result is its own entry that is a section file or holds one
  Inside  ///< a folder in it: the result is the section file
};

/// The first entry, in the file system's order, whose name ends with ".one" or that holds such an entry at
/// any depth; empty when there is none. Folders that cannot be read hold nothing; links that lead back are
/// not followed again.
std::filesystem::path FindOneFileFolder(const std::filesystem::path& folder, StoreLevel level);

/// The folder of OneNote's local notebooks: `FindOneFileFolder` in the version folder of each Library folder
/// in turn. Empty when there is none.
std::filesystem::path GetOneNoteCacheFolder(const std::vector<std::filesystem::path>& libraries);

/// The first version folder that exists; empty when none does.
std::filesystem::path GetOneNoteVersionFolder(const std::vector<std::filesystem::path>& libraries);

}  // namespace quill::files
