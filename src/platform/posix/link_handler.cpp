#include "platform/posix/link_handler.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "base/atomic_file.h"

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestList = 16 << 20;

std::string Variable(const char* name, const std::string& otherwise) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : otherwise;
}

/// Where the lists are, the user's own first.
std::vector<fs::path> Folders() {
  const std::string home = Variable("HOME", "/");
  std::vector<fs::path> folders = {
      Variable("XDG_CONFIG_HOME", home + "/.config"),
      fs::path(Variable("XDG_DATA_HOME", home + "/.local/share")) / "applications"};
  const std::string system = Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
  for (std::string_view rest = system; !rest.empty();) {
    const std::size_t end = rest.find(':');
    folders.push_back(fs::path(rest.substr(0, end)) / "applications");
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  return folders;
}

/// The first entry of the line "KEY=entry;entry;…"; empty when there is no such line.
std::string EntryInList(std::string_view list, const std::string& key) {
  while (!list.empty()) {
    const std::size_t end = list.find('\n');
    const std::string_view line = list.substr(0, end);
    if (line.starts_with(key)) return std::string(line.substr(key.size(), line.find(';') - key.size()));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  return {};
}

}  // namespace

bool UsesDesktopEntries() {
#ifdef __APPLE__
  return false;
#else
  return true;
#endif
}

std::string DesktopEntryForScheme(std::string_view scheme) {
  const std::string key = std::string("x-scheme-handler/").append(scheme).append("=");
  for (const fs::path& folder : Folders()) {
    for (const char* name : {"mimeapps.list", "mimeinfo.cache"}) {
      const Result<std::string> list = ReadFile(folder / name, kLargestList);
      const std::string entry = list.ok() ? EntryInList(*list, key) : std::string();
      if (!entry.empty()) return entry;
    }
  }
  return {};
}

}  // namespace quill::platform
