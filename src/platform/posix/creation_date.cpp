#include "platform/posix/creation_date.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace quill::platform {
namespace {

using Moment = std::chrono::system_clock::time_point;

Moment At(std::int64_t seconds, std::int64_t nanoseconds) {
  const std::chrono::nanoseconds since =
      std::chrono::seconds(seconds) + std::chrono::nanoseconds(nanoseconds);
  return Moment(std::chrono::duration_cast<Moment::duration>(since));
}

}  // namespace

std::optional<Moment> SystemFileDates::Created(const std::filesystem::path& file) const {
#ifdef __APPLE__
  struct stat facts {};
  if (::stat(file.c_str(), &facts) != 0) return std::nullopt;
  const bool hasBirth = facts.st_birthtimespec.tv_sec > 0;
  const timespec& when = hasBirth ? facts.st_birthtimespec : facts.st_mtimespec;
  return At(when.tv_sec, when.tv_nsec);
#else
  struct statx facts {};
  if (::statx(AT_FDCWD, file.c_str(), 0, STATX_BTIME | STATX_MTIME, &facts) != 0) return std::nullopt;
  const bool hasBirth = (facts.stx_mask & STATX_BTIME) != 0 && facts.stx_btime.tv_sec > 0;
  const statx_timestamp& when = hasBirth ? facts.stx_btime : facts.stx_mtime;
  return At(when.tv_sec, when.tv_nsec);
#endif
}

}  // namespace quill::platform
