#include "files/store/onenote_store.h"

#include <string>

#include "files/folder_listing.h"
#include "files/store/seen_folders.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

/// Whether a folder holds a section file at any depth, and where.
fs::path FindInside(const fs::path& folder, StoreLevel level, SeenFolders& seen) {
  if (!seen.Enter(folder)) return {};
  const auto entries = ListFolder(folder);
  if (!entries.ok()) return {};
  for (const FolderEntry& entry : *entries) {
    fs::path whole = folder / entry.name;
    if (entry.name.ends_with(".one")) return whole;
    if (!entry.isFolder) continue;
    fs::path found = FindInside(whole, StoreLevel::Inside, seen);
    if (!found.empty()) return level == StoreLevel::Top ? whole : found;
  }
  return {};
}

}  // namespace

fs::path FindOneFileFolder(const fs::path& folder, StoreLevel level) {
  SeenFolders seen;
  return FindInside(folder, level, seen);
}

fs::path GetOneNoteCacheFolder(const std::vector<fs::path>& libraries) {
  for (const fs::path& library : libraries) {
    fs::path found = FindOneFileFolder(library / kOneNoteVersionFolder, StoreLevel::Top);
    if (!found.empty()) return found;
  }
  return {};
}

fs::path GetOneNoteVersionFolder(const std::vector<fs::path>& libraries) {
  for (const fs::path& library : libraries) {
    std::error_code error;
    fs::path folder = library / kOneNoteVersionFolder;
    if (fs::exists(folder, error)) return folder;
  }
  return {};
}

}  // namespace quill::files
