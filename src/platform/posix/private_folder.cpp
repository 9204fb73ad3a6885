#include "platform/posix/private_folder.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

Failure<std::string> Problem(const fs::path& folder, std::string_view reason) {
  return Failure{fmt::format("{}: {}", folder.string(), reason)};
}

Status<> CheckOwnFolder(const fs::path& folder, const struct stat& info) {
  if (!S_ISDIR(info.st_mode)) return Problem(folder, "is not a folder");
  if (info.st_uid != ::geteuid()) return Problem(folder, "belongs to another user");
  return Done();
}

Status<> TryToWrite(const fs::path& folder) {
  std::string name = (folder / ".probe.XXXXXX").string();
  const int fd = ::mkstemp(name.data());
  if (fd < 0) return Problem(folder, std::strerror(errno));
  ::close(fd);
  ::unlink(name.c_str());
  return Done();
}

}  // namespace

Status<> MakePrivateFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  if (error) return Problem(folder.parent_path(), error.message());
  if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return Problem(folder, std::strerror(errno));
  struct stat info {};
  if (::stat(folder.c_str(), &info) != 0) return Problem(folder, std::strerror(errno));
  const Status<> own = CheckOwnFolder(folder, info);
  if (!own.ok()) return own;
  if ((info.st_mode & 0777) != 0700 && ::chmod(folder.c_str(), 0700) != 0)
    return Problem(folder, std::strerror(errno));
  return TryToWrite(folder);
}

Status<> CanMakePrivateFolder(const fs::path& folder) {
  struct stat info {};
  if (::stat(folder.c_str(), &info) == 0) {
    const Status<> own = CheckOwnFolder(folder, info);
    if (!own.ok()) return own;
  } else if (errno != ENOENT) {
    return Problem(folder, std::strerror(errno));
  }
  fs::path existing = folder;
  while (::stat(existing.c_str(), &info) != 0 && existing.has_relative_path())
    existing = existing.parent_path();
  if (!S_ISDIR(info.st_mode)) return Problem(existing, "is not a folder");
  if (::access(existing.c_str(), W_OK | X_OK) != 0) return Problem(existing, std::strerror(errno));
  return Done();
}

}  // namespace quill::platform
