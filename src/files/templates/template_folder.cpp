#include "files/templates/template_folder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "base/atomic_file.h"
#include "content/text_between.h"
#include "content/unicode_text.h"
#include "files/file_names.h"
#include "files/folder_listing.h"
#include "platform/posix/private_folder.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestTemplate = 256u << 20;

std::string Problem(const fs::path& file, const std::error_code& error) {
  return fmt::format("{}: {}", file.string(), error.message());
}

Result<fs::path> FileOf(const fs::path& folder, std::string_view name) {
  if (CheckTemplateName(name) != TemplateNameProblem::None)
    return Failure{fmt::format("\"{}\" cannot be the name of a template", name)};
  return folder / std::string(name).append(kTemplateExtension);
}

}  // namespace

TemplateNameProblem CheckTemplateName(std::string_view name) {
  if (name.empty()) return TemplateNameProblem::Empty;
  if (name.find(kTemplateExtension) != std::string_view::npos) return TemplateNameProblem::Extension;
  const bool isFileName = IsFileName(name) && IsFileName(std::string(name).append(kTemplateExtension));
  return isFileName ? TemplateNameProblem::None : TemplateNameProblem::NotAName;
}

Result<std::vector<std::string>> TemplateNames(const fs::path& folder) {
  std::error_code error;
  if (!fs::exists(folder, error) && !error) return std::vector<std::string>();
  const Result<std::vector<FolderEntry>> entries = ListFolder(folder);
  if (!entries.ok()) return Failure{entries.error()};
  std::vector<std::pair<std::string, std::string>> names;  // as they are compared, and as they are
  for (const FolderEntry& entry : *entries) {
    if (entry.isFolder || !entry.name.ends_with(kTemplateExtension)) continue;
    const std::string name(content::TextBetween(entry.name, "", kTemplateExtension));
    if (!name.empty()) names.emplace_back(content::ToLower(name), name);
  }
  std::ranges::sort(names);
  std::vector<std::string> sorted;
  sorted.reserve(names.size());
  for (auto& [folded, name] : names) sorted.push_back(std::move(name));
  return sorted;
}

Result<std::string> ReadTemplate(const fs::path& folder, std::string_view name) {
  const Result<fs::path> file = FileOf(folder, name);
  if (!file.ok()) return Failure{file.error()};
  std::error_code error;
  // A pipe would keep the reader waiting.
  if (fs::exists(*file, error) && !fs::is_regular_file(*file, error))
    return Failure{fmt::format("{}: is not a regular file", file->string())};
  Result<std::string> html = ReadFile(*file, kLargestTemplate);
  if (html.ok() && !content::IsValidUtf8(*html))
    return Failure{fmt::format("{}: is not UTF-8", file->string())};
  return html;
}

Status<> SaveTemplate(const fs::path& folder, std::string_view name, std::string_view html) {
  const Result<fs::path> file = FileOf(folder, name);
  if (!file.ok()) return Failure{file.error()};
  const Status<> there = platform::MakePrivateFolder(folder);
  if (!there.ok()) return there;
  std::error_code error;
  if (fs::exists(*file, error) && !fs::is_regular_file(*file, error))
    return Failure{fmt::format("{}: is not a regular file", file->string())};
  errno = 0;
  std::ofstream out(*file, std::ios::binary | std::ios::trunc);
  out.write(html.data(), static_cast<std::streamsize>(html.size()));
  out.close();
  if (out) return Done();
  const int reason = errno != 0 ? errno : EIO;
  return Failure{Problem(*file, std::error_code(reason, std::generic_category()))};
}

Status<> DeleteTemplate(const fs::path& folder, std::string_view name) {
  const Result<fs::path> file = FileOf(folder, name);
  if (!file.ok()) return Failure{file.error()};
  std::error_code error;
  if (fs::is_directory(fs::symlink_status(*file, error))) {
    error = std::make_error_code(std::errc::is_a_directory);
  } else if (!fs::remove(*file, error) && !error) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
  }
  if (error) return Failure{Problem(*file, error)};
  return Done();
}

}  // namespace quill::files
