#include "shell/settings_watch.h"

namespace quill::shell {

SettingsWatch::SettingsWatch(std::filesystem::path file) : m_file(std::move(file)), m_seen(Stamp()) {}

std::optional<std::filesystem::file_time_type> SettingsWatch::Stamp() const {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(m_file, error);
  if (error) return std::nullopt;
  return time;
}

bool SettingsWatch::Changed() {
  const auto stamp = Stamp();
  if (!stamp || stamp == m_seen) return false;
  m_seen = stamp;
  return true;
}

}  // namespace quill::shell
