#include "tools/picture_list.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <set>
#include <utility>

namespace quill::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 7> kExtensions = {"png", "jpg", "jpeg", "jpe", "gif", "emf", "bmp"};

/// Whether the name ends in a dot and one of the extensions; `fold` is applied to each of its characters.
template <class Fold>
bool EndsInExtension(std::string_view name, Fold fold) {
  for (const std::string_view extension : kExtensions) {
    if (name.size() <= extension.size()) continue;
    const std::string_view end = name.substr(name.size() - extension.size());
    const char before = name[name.size() - extension.size() - 1];
    if (before == '.' && std::ranges::equal(end, extension, {}, fold)) return true;
  }
  return false;
}

/// Walks folders and keeps what was found; one object for one list, so that a folder that is reached twice
/// is walked once.
class Expansion {
 public:
  explicit Expansion(const WalkProgress& progress) : m_progress(progress) {}

  void Add(const std::string& path) {
    m_pending.push_back({path, false});
    while (!m_pending.empty() && GoesOn()) {
      const Entry entry = std::move(m_pending.back());
      m_pending.pop_back();
      Look(entry);
    }
  }

  PictureList Take() && { return std::move(m_list); }

 private:
  struct Entry {
    std::string path;
    bool isInFolder;
  };

  bool GoesOn() {
    if (m_progress && !m_list.isStopped) m_list.isStopped = !m_progress(m_list.paths.size());
    return !m_list.isStopped;
  }

  void Look(const Entry& entry) {
    const std::string name = fs::path(entry.path).filename().string();
    const bool isPicture = entry.isInFolder ? IsPictureNameInFolder(name) : IsPictureName(name);
    struct stat status;
    if (::stat(entry.path.c_str(), &status) != 0) {
      const bool isMissing = errno == ENOENT || errno == ENOTDIR;
      // What may not be looked at may be a folder full of pictures.
      if (isPicture || !entry.isInFolder || errno == EACCES)
        Skip(entry, isMissing ? SkipReason::Missing : SkipReason::Unreadable);
    } else if (S_ISDIR(status.st_mode)) {
      if (m_walked.emplace(status.st_dev, status.st_ino).second) PushEntriesOf(entry);
    } else if (!S_ISREG(status.st_mode)) {
      if (isPicture || !entry.isInFolder) Skip(entry, SkipReason::NotAFile);
    } else if (isPicture) {
      m_list.paths.push_back(entry.path);
    } else if (!entry.isInFolder) {
      Skip(entry, SkipReason::NotAPicture);
    }
  }

  void Skip(const Entry& entry, SkipReason reason) { m_list.skipped.push_back({entry.path, reason}); }
  void PushEntriesOf(const Entry& folder);

  const WalkProgress& m_progress;
  PictureList m_list;
  std::vector<Entry> m_pending;  ///< the next one at the back
  std::set<std::pair<dev_t, ino_t>> m_walked;
};

void Expansion::PushEntriesOf(const Entry& folder) {
  const std::size_t first = m_pending.size();
  std::error_code error;
  fs::directory_iterator entries(folder.path, error);
  while (!error && entries != fs::directory_iterator() && GoesOn()) {
    m_pending.push_back({entries->path().string(), true});
    entries.increment(error);
  }
  if (error) Skip(folder, SkipReason::Unreadable);
  std::reverse(m_pending.begin() + static_cast<std::ptrdiff_t>(first), m_pending.end());
}

}  // namespace

std::span<const std::string_view> PictureExtensions() {
  return kExtensions;
}

bool IsPictureName(std::string_view name) {
  return EndsInExtension(name,
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

bool IsPictureNameInFolder(std::string_view name) {
  return EndsInExtension(name, [](char c) { return c; });
}

PictureList ExpandPictures(std::span<const std::string> paths, const WalkProgress& progress) {
  Expansion expansion(progress);
  for (const std::string& path : paths) expansion.Add(path);
  return std::move(expansion).Take();
}

}  // namespace quill::tools
