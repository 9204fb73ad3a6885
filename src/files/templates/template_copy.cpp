#include "files/templates/template_copy.h"

#include <fmt/format.h>

#include <system_error>
#include <vector>

#include "files/folder_listing.h"
#include "files/templates/template_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

class Copier {
 public:
  Copier(const fs::path& from, const fs::path& to, const TemplateCopyProgress& progress)
      : m_from(from), m_to(to), m_progress(progress) {}

  TemplateCopy Run() {
    // All of it first: what is copied into a folder inside the source must not be met again.
    Find();
    for (std::size_t i = 0; i < m_files.size() && GoesOn(i, m_files.size(), m_files[i]); ++i)
      Copy(m_files[i]);
    return m_result;
  }

 private:
  bool GoesOn(std::size_t done, std::size_t total, const fs::path& next) {
    if (!m_result.isStopped && m_progress) m_result.isStopped = !m_progress(done, total, next);
    return !m_result.isStopped;
  }

  void Fail(const std::string& reason) {
    ++m_result.failed;
    if (m_result.reason.empty()) m_result.reason = reason;
  }

  bool IsTarget(const fs::path& folder) const {
    std::error_code error;
    return fs::equivalent(m_from / folder, m_to, error);
  }

  /// The relative paths of the templates below the source.
  void Find() {
    std::vector<fs::path> folders{fs::path()};
    while (!folders.empty()) {
      const fs::path folder = std::move(folders.back());
      folders.pop_back();
      if (!GoesOn(0, 0, folder)) return;
      const Result<std::vector<FolderEntry>> entries = ListFolder(folder.empty() ? m_from : m_from / folder);
      if (!entries.ok()) Fail(entries.error());
      for (const FolderEntry& entry : entries.ok() ? *entries : std::vector<FolderEntry>()) {
        if (entry.isLink) continue;
        if (entry.isFolder) {
          if (!IsTarget(folder / entry.name)) folders.push_back(folder / entry.name);
        } else if (entry.name.ends_with(kTemplateExtension)) {
          m_files.push_back(folder / entry.name);
        }
      }
    }
  }

  void Copy(const fs::path& file) {
    const fs::path target = m_to / file;
    std::error_code error;
    if (fs::exists(fs::symlink_status(target, error))) {
      ++m_result.kept;
      return;
    }
    fs::create_directories(target.parent_path(), error);
    if (!error) fs::copy_file(m_from / file, target, error);
    if (!error) {
      ++m_result.copied;
    } else if (error == std::errc::file_exists) {
      ++m_result.kept;
    } else {
      Fail(fmt::format("{}: {}", target.string(), error.message()));
      fs::remove(target, error);
    }
  }

  const fs::path& m_from;
  const fs::path& m_to;
  const TemplateCopyProgress& m_progress;
  std::vector<fs::path> m_files;
  TemplateCopy m_result;
};

}  // namespace

TemplateCopy CopyTemplates(const fs::path& from, const fs::path& to, const TemplateCopyProgress& progress) {
  return Copier(from, to, progress).Run();
}

}  // namespace quill::files
