#pragma once
#include <filesystem>
#include <optional>

namespace quill::shell {

/// Notices that another process (the command line) has written the settings file. Belongs to the command
/// thread, which asks before each command; nothing polls.
class SettingsWatch {
 public:
  explicit SettingsWatch(std::filesystem::path file);

  /// True when the file has been replaced since the last call. A missing file is no change.
  bool Changed();

 private:
  std::optional<std::filesystem::file_time_type> Stamp() const;

  std::filesystem::path m_file;
  std::optional<std::filesystem::file_time_type> m_seen;
};

}  // namespace quill::shell
