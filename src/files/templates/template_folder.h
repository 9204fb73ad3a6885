#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace quill::files {

/// What the files of templates end with, in lower case only.
inline constexpr std::string_view kTemplateExtension = ".htm";

/// Why a text cannot be the name of a new template.
enum class TemplateNameProblem {
  None,
  Empty,
  NotAName,  ///< it would reach outside the folder, or its file could not be made
  Extension  ///< it has ".htm" in it, and the template would be listed by what stands in front of that
};

TemplateNameProblem CheckTemplateName(std::string_view name);

// A template is a file of a folder, known by its file name up to the first ".htm". The names that the
// functions below take are refused with a failure that says so unless `CheckTemplateName` finds nothing wrong
// with them. Any thread.

/// The names of the templates in a folder, in the order of the alphabet; none when there is no such folder.
/// Files in subfolders are not among them. Fails with the system's reason when the folder cannot be read.
Result<std::vector<std::string>> TemplateNames(const std::filesystem::path& folder);

/// The whole document. Fails, naming the file, when it cannot be read or is not UTF-8.
Result<std::string> ReadTemplate(const std::filesystem::path& folder, std::string_view name);

/// Writes a template in place, over one of the same name. Makes the folder when it is gone. Fails with the
/// file and the system's reason.
Status<> SaveTemplate(const std::filesystem::path& folder, std::string_view name, std::string_view html);

/// Removes a template's file. Fails with the file and the system's reason.
Status<> DeleteTemplate(const std::filesystem::path& folder, std::string_view name);

}  // namespace quill::files
