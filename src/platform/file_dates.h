#pragma once
#include <chrono>
#include <filesystem>
#include <optional>

namespace quill::platform {

/// When files were made; an interface because no test can set a file's creation date. Any thread.
class FileDates {
 public:
  virtual ~FileDates() = default;

  /// The file's creation date; its last change where the file system keeps no creation date. Nothing when
  /// there is no such file or it cannot be asked. Asks the system once.
  virtual std::optional<std::chrono::system_clock::time_point> Created(
      const std::filesystem::path& file) const = 0;
};

}  // namespace quill::platform
