#include "files/store/section_copy.h"

#include <set>

#include "files/folder_listing.h"
#include "files/store/folder_work.h"
#include "files/store/section_choice.h"
#include "files/store/seen_folders.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

class Planner {
 public:
  Planner(const platform::FileDates& dates, const IsCancelled& isCancelled)
      : m_dates(dates), m_isCancelled(isCancelled) {}

  void Look(const fs::path& source, const fs::path& below) {
    if (m_plan.isCancelled || !m_seen.Enter(source)) return;
    m_plan.isCancelled = m_isCancelled && m_isCancelled();
    const auto entries = ListFolder(source);
    if (!entries.ok()) return m_plan.problems.push_back({source, entries.error()});
    const std::vector<ChosenSection> chosen = ChooseSections(source, *entries, m_dates);
    auto next = chosen.begin();
    for (std::size_t i = 0; i < entries->size() && !m_plan.isCancelled; ++i) {
      const FolderEntry& entry = (*entries)[i];
      if (entry.isFolder) {
        m_plan.steps.push_back({SectionStep::Kind::Folder, source / entry.name, below / entry.name});
        Look(source / entry.name, below / entry.name);
      } else if (next != chosen.end() && next->entry == i) {
        m_plan.steps.push_back({SectionStep::Kind::Section, source / entry.name, below / next->name});
        ++m_plan.sections;
        ++next;
      }
    }
  }

  SectionPlan Take() { return std::move(m_plan); }

 private:
  const platform::FileDates& m_dates;
  const IsCancelled& m_isCancelled;
  SeenFolders m_seen;
  SectionPlan m_plan;
};

/// Copies one file with its time of last change, which packages show.
std::error_code CopyWithTime(const fs::path& from, const fs::path& to) {
  std::error_code error;
  const fs::file_time_type changed = fs::last_write_time(from, error);
  if (!error) fs::copy_file(from, to, error);
  if (!error) fs::last_write_time(to, changed, error);
  return error;
}

}  // namespace

SectionPlan PlanSections(const fs::path& source, const platform::FileDates& dates,
                         const IsCancelled& isCancelled) {
  Planner planner(dates, isCancelled);
  planner.Look(source, {});
  return planner.Take();
}

CopyReport CopySections(const fs::path& source, const fs::path& target, const platform::FileDates& dates,
                        const CopyProgress& progress) {
  CopyReport report;
  std::size_t done = 0;
  const IsCancelled isCancelled = [&] { return progress && !progress(0, 0, source); };
  SectionPlan plan = PlanSections(source, dates, isCancelled);
  report.problems = std::move(plan.problems);
  report.isCancelled = plan.isCancelled;
  std::set<fs::path> notMade;
  for (const SectionStep& step : plan.steps) {
    if (report.isCancelled) return report;
    const bool isFolder = step.kind == SectionStep::Kind::Folder;
    if (notMade.contains(step.to.parent_path())) {
      if (isFolder) notMade.insert(step.to);
      continue;
    }
    if (isFolder) {
      const Status<> made = CreateFolder(target / step.to);
      if (made.ok()) continue;
      notMade.insert(step.to);
      report.problems.push_back({step.from, made.error()});
      continue;
    }
    report.isCancelled = progress && !progress(done++, plan.sections, step.from);
    if (report.isCancelled) return report;
    const std::error_code error = CopyWithTime(step.from, target / step.to);
    if (error) report.problems.push_back({step.from, error.message()});
    if (!error) ++report.copied;
  }
  return report;
}

}  // namespace quill::files
