#pragma once
#include <filesystem>

namespace quill::cli {

/// A folder for this user alone that goes with this object, and everything in it. Stops with `kWorkFailed`
/// when it cannot be made.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

}  // namespace quill::cli
