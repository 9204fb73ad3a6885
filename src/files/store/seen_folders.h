#pragma once
#include <cstdint>
#include <filesystem>
#include <set>
#include <utility>

namespace quill::files {

/// The folders that a walk has been in, by device and inode, so that links which lead back end it.
class SeenFolders {
 public:
  /// True the first time that a folder is entered, whatever path leads to it; false for one that was, and for
  /// what cannot be asked or is no folder.
  bool Enter(const std::filesystem::path& folder);

 private:
  std::set<std::pair<std::uint64_t, std::uint64_t>> m_seen;
};

}  // namespace quill::files
