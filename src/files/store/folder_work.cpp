#include "files/store/folder_work.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "files/folder_listing.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

/// Both as they really are, without links.
bool IsAtOrBelow(const fs::path& folder, const fs::path& top) {
  const auto [end, unused] = std::mismatch(top.begin(), top.end(), folder.begin(), folder.end());
  return end == top.end();
}

Failure<std::string> Problem(const fs::path& path, const std::error_code& error) {
  return Failure{fmt::format("{}: {}", path.string(), error.message())};
}

Status<> CheckInside(const fs::path& folder, const fs::path& temporaryFolder) {
  if (folder.empty() || temporaryFolder.empty()) return Failure{std::string("no folder was named")};
  std::error_code error;
  if (fs::is_symlink(folder, error)) return Failure{folder.string() + ": a link is not emptied"};
  const fs::path top = fs::canonical(temporaryFolder, error);
  if (error) return Problem(temporaryFolder, error);
  const fs::path real = fs::canonical(folder, error);
  if (error) return Problem(folder, error);
  if (top == top.root_path() || !IsAtOrBelow(real, top))
    return Failure{folder.string() + ": not in the temporary folder"};
  return Done();
}

}  // namespace

Status<> EmptyFolder(const fs::path& folder, const fs::path& temporaryFolder) {
  if (Status<> inside = CheckInside(folder, temporaryFolder); !inside.ok()) return inside;
  const auto entries = ListFolder(folder);
  if (!entries.ok()) return Failure{entries.error()};
  for (const FolderEntry& entry : *entries) {
    std::error_code error;
    fs::remove_all(folder / entry.name, error);  // opens every folder without following links
    if (error) return Problem(folder / entry.name, error);
  }
  return Done();
}

Status<> CreateFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  std::error_code missing;
  if (fs::is_directory(folder, missing)) return Done();
  return Problem(folder, error     ? error
                         : missing ? missing
                                   : std::make_error_code(std::errc::not_a_directory));
}

Result<FolderLock> FolderLock::Take(const fs::path& folder) {
  FolderLock lock(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (lock.m_fd >= 0 && ::flock(lock.m_fd, LOCK_EX | LOCK_NB) == 0) return lock;
  if (errno == EWOULDBLOCK) return Failure{folder.string() + ": another program works in this folder"};
  return Failure{fmt::format("{}: {}", folder.string(), std::strerror(errno))};
}

FolderLock::FolderLock(FolderLock&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
  std::swap(m_fd, other.m_fd);
  return *this;
}

FolderLock::~FolderLock() {
  if (m_fd >= 0) ::close(m_fd);
}

}  // namespace quill::files
