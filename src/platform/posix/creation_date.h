#pragma once
#include "platform/file_dates.h"

namespace quill::platform {

/// Creation dates as the file system keeps them (statx on Linux, the birth time of stat on macOS). A symbolic
/// link has those of what it leads to.
class SystemFileDates final : public FileDates {
 public:
  std::optional<std::chrono::system_clock::time_point> Created(
      const std::filesystem::path& file) const override;
};

}  // namespace quill::platform
