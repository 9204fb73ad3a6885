#pragma once
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace quill::files {

/// What came of copying templates.
struct TemplateCopy {
  std::size_t copied = 0;
  std::size_t kept = 0;    ///< a file of that name was there already, and was left as it is
  std::size_t failed = 0;  ///< files and folders that could not be read or written
  std::string reason;      ///< of the first failure, naming the file
  bool isStopped = false;
};

/// Told the file or folder that comes next and how many files are done of how many (0 of 0 while they are
/// looked for); false ends the copying.
using TemplateCopyProgress =
    std::function<bool(std::size_t done, std::size_t total, const std::filesystem::path& next)>;

/// Copies every regular ".htm" file in a folder and its subfolders to the same place below another. Nothing
/// that is there is replaced; symbolic links are neither followed nor copied; a file that could be copied in
/// part only is removed again. A target inside the source is not looked into. Any thread. O(entries + bytes).
TemplateCopy CopyTemplates(const std::filesystem::path& from, const std::filesystem::path& to,
                           const TemplateCopyProgress& progress = {});

}  // namespace quill::files
