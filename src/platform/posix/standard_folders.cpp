#include "platform/posix/standard_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "base/atomic_file.h"

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kUserDirsLimit = std::uintmax_t{64} * 1024;

#if defined(__APPLE__)
constexpr bool kHasLibrary = true;
#else
constexpr bool kHasLibrary = false;
#endif

std::optional<fs::path> FolderFromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || value[0] != '/') return std::nullopt;
  return fs::path(value);
}

fs::path Home() {
  if (const auto home = FolderFromEnvironment("HOME")) return *home;
  const passwd* entry = ::getpwuid(::getuid());
  return entry != nullptr && entry->pw_dir != nullptr ? fs::path(entry->pw_dir) : fs::path("/");
}

fs::path XdgDocuments(const fs::path& home) {
  const fs::path settings = FolderFromEnvironment("XDG_CONFIG_HOME").value_or(home / ".config");
  const Result<std::string> text = ReadFile(settings / "user-dirs.dirs", kUserDirsLimit);
  if (!text.ok()) return home / "Documents";
  return DocumentsInUserDirs(*text, home).value_or(home / "Documents");
}

}  // namespace

std::optional<fs::path> DocumentsInUserDirs(std::string_view text, const fs::path& home) {
  constexpr std::string_view kName = "XDG_DOCUMENTS_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  std::optional<fs::path> found;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(kName)) continue;
    line.remove_prefix(kName.size());
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
      if (line[i] == '\\' && i + 1 < line.size()) ++i;
      value += line[i];
    }
    if (value.starts_with("$HOME/")) {
      found = (home / fs::path(value.substr(kHome.size() + 1))).lexically_normal();
    } else if (value.starts_with('/')) {
      found = fs::path(value);
    }
  }
  return found;
}

StandardFolders FindStandardFolders() {
  StandardFolders folders;
  folders.home = Home();
  folders.localLibrary = "/Library";
  folders.applications = "/Applications";
  folders.hasLocalDomain = kHasLibrary;
  if (kHasLibrary) {
    folders.userLibrary = folders.home / "Library";
    folders.documents = folders.home / "Documents";
  } else {
    folders.userLibrary = FolderFromEnvironment("XDG_DATA_HOME").value_or(folders.home / ".local" / "share");
    folders.documents = XdgDocuments(folders.home);
  }
  return folders;
}

}  // namespace quill::platform
