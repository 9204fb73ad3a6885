#include "base/atomic_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace quill {
namespace {

constexpr std::string_view kTemporaryMark = ".tmp-";
constexpr std::string_view kTemporaryRandom = "XXXXXX";

/// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd) : m_fd(fd) {}
  ~Descriptor() {
    if (m_fd >= 0) ::close(m_fd);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return m_fd; }
  bool Close() {
    const int fd = m_fd;
    m_fd = -1;
    return ::close(fd) == 0;
  }

 private:
  int m_fd;
};

/// Removes a file when it goes, unless it was kept.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string path) : m_path(std::move(path)) {}
  ~TemporaryFile() {
    if (!m_path.empty()) ::unlink(m_path.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  const std::string& path() const { return m_path; }
  void Keep() { m_path.clear(); }

 private:
  std::string m_path;
};

Failure<std::string> Problem(const std::filesystem::path& file) {
  return Failure{fmt::format("{}: {}", file.string(), std::strerror(errno))};
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

Status<> WriteFileAtomically(const std::filesystem::path& file, std::string_view bytes) {
  std::string name = file.string().append(kTemporaryMark).append(kTemporaryRandom);
  Descriptor fd(::mkstemp(name.data()));
  if (fd.get() < 0) return Problem(file);
  TemporaryFile temporary(name);
  if (!WriteAll(fd.get(), bytes) || ::fsync(fd.get()) != 0 || !fd.Close()) return Problem(file);
  if (::rename(temporary.path().c_str(), file.c_str()) != 0) return Problem(file);
  temporary.Keep();
  const std::filesystem::path folder =
      file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
  Descriptor folderFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folderFd.get() >= 0) ::fsync(folderFd.get());
  return Done();
}

void RemoveTemporaryFiles(const std::filesystem::path& folder, std::chrono::seconds age) {
  namespace fs = std::filesystem;
  std::error_code error;
  const auto newest = fs::file_time_type::clock::now() - age;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const std::size_t mark = name.rfind(kTemporaryMark);
    if (mark == std::string::npos || mark == 0) continue;
    if (name.size() - mark != kTemporaryMark.size() + kTemporaryRandom.size()) continue;
    std::error_code own;
    const fs::file_status status = entry->symlink_status(own);
    const fs::file_time_type written = entry->last_write_time(own);
    if (!own && fs::is_regular_file(status) && written <= newest) fs::remove(entry->path(), own);
  }
}

Result<std::string> ReadFile(const std::filesystem::path& file, std::uintmax_t limit) {
  Descriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.get() < 0) return Problem(file);
  struct stat info {};
  if (::fstat(fd.get(), &info) != 0) return Problem(file);
  if (S_ISDIR(info.st_mode)) return Failure{fmt::format("{}: is a folder", file.string())};
  const Failure tooLarge{fmt::format("{}: larger than the {} bytes that are taken", file.string(), limit)};
  std::string bytes;
  if (S_ISREG(info.st_mode) && static_cast<std::uintmax_t>(info.st_size) > limit) return tooLarge;
  if (S_ISREG(info.st_mode)) bytes.reserve(static_cast<std::size_t>(info.st_size) + 1);
  constexpr std::size_t kBlock = 1 << 16;
  for (;;) {
    const std::size_t have = bytes.size();
    bytes.resize(std::max(have + kBlock, bytes.capacity()));
    const ssize_t got = ::read(fd.get(), bytes.data() + have, bytes.size() - have);
    bytes.resize(have + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got < 0 && errno != EINTR) return Problem(file);
    if (bytes.size() > limit) return tooLarge;
    if (got == 0) return bytes;
  }
}

}  // namespace quill
