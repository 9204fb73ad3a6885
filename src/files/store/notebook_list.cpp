#include "files/store/notebook_list.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "content/unicode_text.h"
#include "files/folder_listing.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 3> kRestoredPackages{".onepkg", ".quillpkg", ".zip"};

bool IsNotebook(const FolderEntry& entry) {
  if (!entry.isFolder || content::ToLower(entry.name) == content::ToLower(kRestoreSectionsFolder))
    return false;
  return std::ranges::none_of(kRestoredPackages,
                              [&](std::string_view ending) { return entry.name.ends_with(ending); });
}

void AddSection(NotebookFacts& facts, const fs::path& section) {
  struct stat found {};
  if (::stat(section.c_str(), &found) != 0) {
    ++facts.unreadable;
    return;
  }
  ++facts.sections;
  facts.bytes += static_cast<std::uintmax_t>(found.st_size);
  const auto changed = std::chrono::system_clock::from_time_t(found.st_mtime);
  facts.changed = std::max(facts.changed.value_or(changed), changed);
}

}  // namespace

Result<std::vector<MAFolder>> LoadBackupNotebooks(const fs::path& cacheFolder) {
  const auto entries = ListFolder(cacheFolder);
  if (!entries.ok()) return Failure{entries.error()};
  std::vector<MAFolder> notebooks;
  for (const FolderEntry& entry : *entries) {
    if (IsNotebook(entry)) notebooks.push_back({true, entry.name, cacheFolder / entry.name});
  }
  return notebooks;
}

NotebookFacts MeasureNotebook(const fs::path& notebook, const platform::FileDates& dates,
                              const IsCancelled& isCancelled) {
  const SectionPlan plan = PlanSections(notebook, dates, isCancelled);
  NotebookFacts facts;
  facts.unreadable = plan.problems.size();
  for (const SectionStep& step : plan.steps) {
    if (isCancelled && isCancelled()) break;
    if (step.kind == SectionStep::Kind::Section) AddSection(facts, step.from);
  }
  return facts;
}

}  // namespace quill::files
