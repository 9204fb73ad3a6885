#include "files/backup/backup_folder.h"

#include <fmt/format.h>

#include <fstream>
#include <set>

#include "files/folder_listing.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kBackupName = "OneAppBackup";
constexpr const char* kDataName = "OneNote";
constexpr std::string_view kMark = ".incomplete";
constexpr std::string_view kSectionEnd = ".one";

fs::path MarkOf(const fs::path& backupFolder, std::string_view name) {
  return backupFolder / std::string(name).append(kMark);
}

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

/// The program at its fixed place, or the one on PATH where the system has it elsewhere.
std::string Program(const char* fixed) {
  std::error_code error;
  return fs::exists(fixed, error) ? fixed : fs::path(fixed).filename().string();
}

/// Counts what a walk comes by.
class Count {
 public:
  explicit Count(fs::path root) : m_root(std::move(root)) {}

  void Add(const fs::path& file, std::uintmax_t bytes) {
    m_contents.bytes += bytes;
    const std::string name = file.filename().string();
    if (!name.ends_with(kSectionEnd)) return;
    // OneNote keeps versions of a section as "Name.one (version).one".
    const std::string section = name.substr(0, name.find(kSectionEnd));
    if (!m_sections.insert(file.parent_path() / section).second) return;
    ++m_contents.sections;
    AddNotebook(file);
  }

  const BackupContents& contents() const { return m_contents; }

 private:
  /// Notebooks are folders at the third level: OneNote's version, the folder of the notebooks, the notebook.
  void AddNotebook(const fs::path& file) {
    constexpr std::ptrdiff_t kLevel = 3;
    const fs::path below = file.lexically_relative(m_root);
    if (std::distance(below.begin(), below.end()) <= kLevel) return;
    fs::path notebook;
    auto part = below.begin();
    for (std::ptrdiff_t level = 0; level < kLevel; ++level) notebook /= *part++;
    if (m_notebooks.insert(notebook).second) ++m_contents.notebooks;
  }

  fs::path m_root;
  std::set<fs::path> m_sections;
  std::set<fs::path> m_notebooks;
  BackupContents m_contents;
};

}  // namespace

Result<fs::path> OwnBackupFolder(const BackupPlaces& places) {
  const fs::path& folder = places.backupFolder;
  const auto refuse = [&](std::string_view reason) {
    return Failure{fmt::format("{}: {}", folder.string(), reason)};
  };
  if (!folder.is_absolute() || folder.lexically_normal() != folder) return refuse("not a full path");
  if (folder.filename() != kBackupName) return refuse("not the folder of the backups");
  std::error_code error;
  const fs::path support = fs::canonical(places.supportFolder, error);
  if (error) return refuse(error.message());
  if (fs::canonical(folder.parent_path(), error) != support) return refuse("not in the program's own folder");
  fs::create_directory(folder, error);
  if (fs::symlink_status(folder, error).type() != fs::file_type::directory) return refuse("not a folder");
  return support / kBackupName;
}

Result<std::vector<Backup>> ListBackups(const BackupPlaces& places) {
  if (!IsThere(places.backupFolder)) return std::vector<Backup>();
  auto entries = ListFolder(places.backupFolder);
  if (!entries.ok()) return Failure{entries.error()};
  std::vector<Backup> backups;
  for (const FolderEntry& entry : *entries) {
    const StoredDate day = ParseStoredDate(entry.name);
    if (!entry.isFolder || entry.isLink || !day) continue;
    std::error_code error;
    const bool isWhole = !IsThere(MarkOf(places.backupFolder, entry.name)) &&
                         fs::is_directory(places.backupFolder / entry.name / kDataName, error);
    backups.push_back({entry.name, *day, isWhole});
  }
  return backups;
}

BackupContents MeasureBackup(const BackupPlaces& places, std::string_view name,
                             const std::function<bool()>& isCancelled) {
  const fs::path root = places.backupFolder / name / kDataName;
  Count count(root);
  std::error_code error;
  const auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator entry(root, options, error), end; !error && entry != end;
       entry.increment(error)) {
    if (isCancelled && isCancelled()) break;
    std::error_code vanished;
    if (entry->symlink_status(vanished).type() != fs::file_type::regular) continue;
    const std::uintmax_t bytes = entry->file_size(vanished);
    if (!vanished) count.Add(entry->path(), bytes);
  }
  return count.contents();
}

bool MarkIncomplete(const fs::path& backupFolder, std::string_view name) {
  const fs::path mark = MarkOf(backupFolder, name);
  if (!IsThere(mark)) std::ofstream(mark).flush();
  return IsThere(mark);
}

void UnmarkIncomplete(const fs::path& backupFolder, std::string_view name) {
  std::error_code error;
  fs::remove(MarkOf(backupFolder, name), error);
}

void RemoveStrayMarks(const fs::path& backupFolder) {
  const auto entries = ListFolder(backupFolder);
  if (!entries.ok()) return;
  for (const FolderEntry& entry : *entries) {
    if (entry.isFolder || !entry.name.ends_with(kMark)) continue;
    const std::string name = entry.name.substr(0, entry.name.size() - kMark.size());
    if (ParseStoredDate(name) && !IsThere(backupFolder / name)) UnmarkIncomplete(backupFolder, name);
  }
}

std::vector<std::string> RemoveCommand(const fs::path& folder) {
  return {Program("/bin/rm"), "-rf", folder.string()};
}

std::vector<std::string> CopyCommand(const fs::path& source, const fs::path& into) {
  return {Program("/bin/cp"), "-R", source.string(), into.string()};
}

}  // namespace quill::files
