#include "files/store/notebook_package.h"

#include <chrono>
#include <set>
#include <utility>

#include "content/unicode_text.h"
#include "files/folder_listing.h"
#include "files/store/folder_work.h"
#include "files/store/tool_run.h"

namespace quill::files {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".quillpkg";

/// The names of the archiver's own temporary files: it writes one beside the package and renames it at the
/// end.
std::set<std::string> ArchiverFiles(const fs::path& folder) {
  constexpr std::size_t kLength = 8;
  std::set<std::string> names;
  for (const FolderEntry& entry : ListFolder(folder).ValueOr({})) {
    if (!entry.isFolder && entry.name.size() == kLength && entry.name.starts_with("zi"))
      names.insert(entry.name);
  }
  return names;
}

/// What the archiver left in a folder when it was made to end before it could clear up.
void RemoveLeftovers(const fs::path& folder, const std::set<std::string>& before) {
  for (const std::string& name : ArchiverFiles(folder)) {
    std::error_code error;
    if (!before.contains(name)) fs::remove(folder / name, error);
  }
}

/// A folder's name as the archiver takes it: not for an option, nor for the end of its list.
std::string ArgumentOf(const std::string& name) {
  return name.starts_with('-') || name == "@" ? "./" + name : name;
}

/// One notebook of a job.
class Packing {
 public:
  Packing(const MAFolder& notebook, const fs::path& target, const PackageTools& tools,
          PackageProgress progress)
      : m_notebook(notebook), m_target(target), m_tools(tools), m_progress(std::move(progress)) {
    m_outcome.name = notebook.name;
    m_outcome.package = target / (notebook.name + std::string(kExtension));
  }

  PackageOutcome Run() {
    if (!Stage()) return m_outcome;
    Zip();
    return m_outcome;
  }

 private:
  bool Fail(std::string reason) {
    m_outcome.end = PackageEnd::Failed;
    m_outcome.reason = std::move(reason);
    return false;
  }

  bool Go(double fraction) const { return !m_progress || m_progress(fraction, m_notebook.name); }

  /// Copies the sections into the temporary folder: the first half of the way.
  bool Stage() {
    const Status<> empty = EmptyFolder(m_tools.temporaryFolder, m_tools.temporaryFolder);
    if (!empty.ok()) return Fail(empty.error());
    const fs::path work = m_tools.temporaryFolder / m_notebook.name;
    const Status<> made = CreateFolder(work);
    if (!made.ok()) return Fail(made.error());
    CopyReport copied = CopySections(
        m_notebook.path, work, m_tools.dates, [&](std::size_t done, std::size_t total, const fs::path&) {
          return Go(total == 0 ? 0 : 0.5 * static_cast<double>(done) / static_cast<double>(total));
        });
    m_outcome.missing = std::move(copied.problems);
    if (copied.isCancelled) m_outcome.end = PackageEnd::Cancelled;
    return !copied.isCancelled;
  }

  void Zip() {
    const std::set<std::string> before = ArchiverFiles(m_target);
    ToolRun run{{"/usr/bin/zip", "zip"},
                {"-r", "-m", "-o", m_outcome.package.string(), ArgumentOf(m_notebook.name)},
                m_tools.temporaryFolder,
                [&] { return !Go(0.5); }};
    const platform::ProcessResult result = RunTool(m_tools.runner, run);
    if (result.ok()) {
      m_outcome.end = m_outcome.missing.empty() ? PackageEnd::Packed : PackageEnd::Incomplete;
      return;
    }
    if (result.end != platform::ProcessEnd::Exited) RemoveLeftovers(m_target, before);
    if (result.end == platform::ProcessEnd::Cancelled) {
      m_outcome.end = PackageEnd::Cancelled;
    } else {
      Fail(ToolProblem(result));
    }
  }

  const MAFolder& m_notebook;
  const fs::path& m_target;
  const PackageTools& m_tools;
  PackageProgress m_progress;
  PackageOutcome m_outcome;
};

std::size_t CountChecked(const std::vector<MAFolder>& notebooks) {
  std::size_t count = 0;
  for (const MAFolder& notebook : notebooks) count += notebook.checked ? 1 : 0;
  return count;
}

}  // namespace

Result<std::vector<PackageOutcome>> PackageNotebooks(const std::vector<MAFolder>& notebooks,
                                                     const fs::path& target, const PackageTools& tools,
                                                     const PackageProgress& progress) {
  std::vector<PackageOutcome> outcomes;
  const std::size_t count = CountChecked(notebooks);
  if (count == 0) return outcomes;
  const auto lock = FolderLock::Take(tools.temporaryFolder);
  if (!lock.ok()) return Failure{lock.error()};
  std::error_code error;
  const fs::path whole = fs::absolute(target, error);  // the archiver works in another folder
  if (error) return Failure{target.string() + ": " + error.message()};
  for (const MAFolder& notebook : notebooks) {
    if (!notebook.checked) continue;
    const auto share = [&](double fraction, std::string_view detail) {
      return !progress ||
             progress((static_cast<double>(outcomes.size()) + fraction) / static_cast<double>(count), detail);
    };
    outcomes.push_back(Packing(notebook, whole, tools, share).Run());
    if (outcomes.back().end == PackageEnd::Cancelled) break;
  }
  const Status<> emptied = EmptyFolder(tools.temporaryFolder, tools.temporaryFolder);
  static_cast<void>(emptied);  // the next job's first step, which tells
  return outcomes;
}

}  // namespace quill::files
