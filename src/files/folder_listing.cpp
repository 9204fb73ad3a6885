#include "files/folder_listing.h"

#include <fmt/format.h>

namespace quill::files {
namespace {

namespace fs = std::filesystem;

std::string Problem(const fs::path& folder, const std::error_code& error) {
  return fmt::format("{}: {}", folder.string(), error.message());
}

}  // namespace

Result<std::vector<FolderEntry>> ListFolder(const fs::path& folder) {
  std::error_code error;
  std::vector<FolderEntry> entries;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code vanished;
    const bool isLink = entry->is_symlink(vanished);
    const bool isFolder = entry->is_directory(vanished);
    if (vanished == std::errc::no_such_file_or_directory && !isLink) continue;
    entries.push_back({entry->path().filename().string(), isFolder, isLink});
  }
  if (error) return Failure{Problem(folder, error)};
  return entries;
}

}  // namespace quill::files
