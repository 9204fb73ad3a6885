#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace quill::files {

enum class SectionRestoreEnd {
  Restored,
  NoFolder,  ///< the folder for restored sections cannot be made
  NotCopied  ///< a section of that name is as it was
};

struct SectionRestore {
  SectionRestoreEnd end = SectionRestoreEnd::Restored;
  std::filesystem::path file;  ///< where the section is, or would have been
  std::string reason;          ///< the system's
};

/// Copies a section file into the folder for restored sections below the cache folder. One of the same name
/// there is replaced in one step once the copy is complete.
SectionRestore RestoreSectionFile(const std::filesystem::path& section,
                                  const std::filesystem::path& cacheFolder);

/// The same for a section that is not a file.
SectionRestore RestoreSectionBytes(std::string_view name, std::string_view bytes,
                                   const std::filesystem::path& cacheFolder);

}  // namespace quill::files
