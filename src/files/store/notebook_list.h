#pragma once
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "files/store/section_copy.h"
#include "platform/file_dates.h"

namespace quill::files {

/// The folder in the cache that receives restored section files.
inline constexpr std::string_view kRestoreSectionsFolder = "Quill Restore Sections";

/// A local notebook that can be packed.
struct MAFolder {
  bool checked = true;
  std::string name;  ///< the folder's own name
  std::filesystem::path path;
};

/// The notebooks in OneNote's cache folder, in the file system's order: its folders but the one for restored
/// sections (in any case) and restored packages, whose names end with ".onepkg", ".quillpkg" or ".zip". Fails
/// with the system's reason when the folder cannot be read.
Result<std::vector<MAFolder>> LoadBackupNotebooks(const std::filesystem::path& cacheFolder);

/// What a package of a notebook would hold.
struct NotebookFacts {
  std::size_t sections = 0;
  std::uintmax_t bytes = 0;
  std::optional<std::chrono::system_clock::time_point>
      changed;                 ///< the latest change of a section, in whole seconds
  std::size_t unreadable = 0;  ///< folders and sections that could not be asked
};

/// Looks through a notebook for them. When cancelled, what was found until then. Any thread.
NotebookFacts MeasureNotebook(const std::filesystem::path& notebook, const platform::FileDates& dates,
                              const IsCancelled& isCancelled = {});

}  // namespace quill::files
