#pragma once
#include <filesystem>

#include "base/result.h"

namespace quill::files {

/// Deletes everything inside a folder and keeps the folder itself; ends at the first entry that cannot be
/// removed. Links are removed, never followed. Refuses an empty path, a link, and what is neither the
/// temporary folder nor inside it, wherever links on the way may lead: foreign data can never be meant.
Status<> EmptyFolder(const std::filesystem::path& folder, const std::filesystem::path& temporaryFolder);

/// Makes a folder with all missing parents. Succeeds when it is there afterwards.
Status<> CreateFolder(const std::filesystem::path& folder);

/// Keeps others out of a folder while it is worked in: a second program, or this one on another thread, does
/// not get it. Goes with the object, and with the process however that ends.
class FolderLock {
 public:
  /// Fails at once when somebody else has it, with words, or when the folder cannot be opened.
  static Result<FolderLock> Take(const std::filesystem::path& folder);

  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&& other) noexcept;
  ~FolderLock();

 private:
  explicit FolderLock(int fd) : m_fd(fd) {}
  int m_fd;
};

}  // namespace quill::files
