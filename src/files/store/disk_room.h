#pragma once
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

namespace quill::files {

/// The bytes that this user can still write where a path is; nothing when the system does not tell.
using FreeSpace = std::function<std::optional<std::uintmax_t>(const std::filesystem::path&)>;
std::optional<std::uintmax_t> FreeSpaceOf(const std::filesystem::path& path);

/// Watches that a job leaves room on a disk: 512 MB, or an eighth of what there was on a smaller one. A
/// program that is told to end writes on for a moment, hence as much.
class DiskRoom {
 public:
  DiskRoom(std::filesystem::path folder, FreeSpace freeSpace);

  /// True once there has been less. Asks the system.
  bool IsShort();
  bool wasShort() const { return m_wasShort; }

 private:
  std::filesystem::path m_folder;
  FreeSpace m_freeSpace;
  std::uintmax_t m_kept = 0;
  bool m_wasShort = false;
};

}  // namespace quill::files
