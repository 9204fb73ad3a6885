#include "files/store/seen_folders.h"

#include <sys/stat.h>

namespace quill::files {

bool SeenFolders::Enter(const std::filesystem::path& folder) {
  struct stat facts {};
  if (::stat(folder.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode)) return false;
  return m_seen.emplace(static_cast<std::uint64_t>(facts.st_dev), static_cast<std::uint64_t>(facts.st_ino))
      .second;
}

}  // namespace quill::files
