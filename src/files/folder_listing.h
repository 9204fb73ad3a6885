#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"

namespace quill::files {

/// One entry of a folder.
struct FolderEntry {
  std::string name;       ///< its own name, as bytes
  bool isFolder = false;  ///< a folder, or a symbolic link that leads to one
  bool isLink = false;    ///< a symbolic link, wherever it leads
};

/// The entries of a folder in the order in which the file system gives them, hidden ones included, "." and
/// ".." not. Entries that vanish meanwhile are left out. Fails with the folder's name and the system's reason
/// when the folder cannot be read. Any thread.
Result<std::vector<FolderEntry>> ListFolder(const std::filesystem::path& folder);

}  // namespace quill::files
