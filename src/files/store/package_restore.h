#pragma once
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "files/store/disk_room.h"
#include "platform/process_runner.h"

namespace quill::files {

/// What unpacking works with.
struct UnpackTools {
  platform::ProcessRunner& runner;
  std::function<bool()> isCancelled = nullptr;
  FreeSpace freeSpace = nullptr;  ///< stands for the disk's own in a test
};

enum class UnpackEnd {
  Unpacked,
  Partly,     ///< the program complained; what it wrote is there
  Nothing,    ///< nothing came out of it
  NoFile,     ///< the package cannot be read
  NoFolder,   ///< the target cannot be made or written
  NoProgram,  ///< the unpacking program is not installed
  DiskFull,   ///< stopped before it filled the disk
  Cancelled
};

struct UnpackOutcome {
  UnpackEnd end = UnpackEnd::Nothing;
  std::size_t files = 0;         ///< how many files and links came out
  std::size_t kept = 0;          ///< how many of them were there already and stayed as they were
  std::size_t removedLinks = 0;  ///< links that led out of the target
  std::string reason;            ///< in the system's or the program's words
};

/// Whether something is in the target now that was in the package.
inline bool HasRestored(const UnpackOutcome& outcome) {
  return outcome.end == UnpackEnd::Unpacked || outcome.end == UnpackEnd::Partly;
}

/// Unpacks a .quillpkg (zip) into a folder, which is made. What is in it already stays. Nothing is ever
/// written outside of it, and links that lead out of it are removed. Unless something was restored, the
/// folder is afterwards as it was, or gone if it was not there.
UnpackOutcome UnpackQuillpkg(const std::filesystem::path& package, const std::filesystem::path& target,
                             const UnpackTools& tools);

/// The same for a .onepkg (cabinet) with the first of these programs that there is.
UnpackOutcome UnpackOnepkg(const std::filesystem::path& package, const std::filesystem::path& target,
                           const std::vector<std::string>& extractors, const UnpackTools& tools);

}  // namespace quill::files
