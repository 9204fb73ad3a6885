#pragma once
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quill::test {

/// A folder of its own for one test; goes with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quill-test-XXXXXX").string();
    if (::mkdtemp(name.data()) != nullptr) m_path = name;
  }
  ~TemporaryFolder() {
    std::error_code error;
    if (!m_path.empty()) std::filesystem::remove_all(m_path, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }

  /// Writes a file below the folder, with the folders above it.
  std::filesystem::path Write(const std::filesystem::path& name, std::string_view bytes) const {
    const std::filesystem::path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

 private:
  std::filesystem::path m_path;
};

/// The permission bits of a file, 0 when there is none.
inline int Mode(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  return error ? 0 : static_cast<int>(status.permissions() & std::filesystem::perms::mask);
}

}  // namespace quill::test
