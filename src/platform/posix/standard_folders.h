#pragma once
#include <filesystem>
#include <optional>
#include <string_view>

namespace quill::platform {

/// The folders that the system gives to the user and to all users.
struct StandardFolders {
  std::filesystem::path userLibrary;   ///< ~/Library; elsewhere $XDG_DATA_HOME or ~/.local/share
  std::filesystem::path localLibrary;  ///< /Library
  std::filesystem::path documents;     ///< ~/Documents; elsewhere what xdg-user-dirs says, else the same
  std::filesystem::path applications;  ///< /Applications
  std::filesystem::path home;
  bool hasLocalDomain;  ///< the system itself has /Library; where it has not, nobody should make one
};

/// Asks the environment (HOME, XDG_DATA_HOME, XDG_CONFIG_HOME) and the user database. Variables that hold
/// no absolute path are ignored, as the base directory rules say.
StandardFolders FindStandardFolders();

/// The documents folder in the text of a `user-dirs.dirs` file: the last line
/// XDG_DOCUMENTS_DIR="$HOME/…" or ="/…". Nothing when there is none of this form.
std::optional<std::filesystem::path> DocumentsInUserDirs(std::string_view text,
                                                         const std::filesystem::path& home);

}  // namespace quill::platform
