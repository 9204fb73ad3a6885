#include "files/store/disk_room.h"

#include <algorithm>
#include <utility>

namespace quill::files {
namespace {

constexpr std::uintmax_t kKept = 512u << 20;
constexpr std::uintmax_t kShareKept = 8;

}  // namespace

std::optional<std::uintmax_t> FreeSpaceOf(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::space_info space = std::filesystem::space(path, error);
  if (error) return std::nullopt;
  return space.available;
}

DiskRoom::DiskRoom(std::filesystem::path folder, FreeSpace freeSpace)
    : m_folder(std::move(folder)), m_freeSpace(freeSpace ? std::move(freeSpace) : FreeSpaceOf) {
  m_kept = std::min(kKept, m_freeSpace(m_folder).value_or(0) / kShareKept);
}

bool DiskRoom::IsShort() {
  const auto left = m_freeSpace(m_folder);
  m_wasShort = m_wasShort || (left && *left < m_kept);
  return m_wasShort;
}

}  // namespace quill::files
