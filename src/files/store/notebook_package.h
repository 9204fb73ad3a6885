#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "files/store/notebook_list.h"
#include "files/store/section_copy.h"
#include "platform/file_dates.h"
#include "platform/process_runner.h"

namespace quill::files {

/// What packing works with.
struct PackageTools {
  platform::ProcessRunner& runner;
  const platform::FileDates& dates;
  std::filesystem::path temporaryFolder;  ///< emptied before each notebook and afterwards
};

/// Told how far the job is (0 to 1) and what it works on; false ends it soon.
using PackageProgress = std::function<bool(double fraction, std::string_view detail)>;

enum class PackageEnd {
  Packed,
  Incomplete,  ///< packed without what could not be read
  Failed,      ///< the package, if there was one, is as it was
  Cancelled
};

/// What became of one notebook.
struct PackageOutcome {
  std::string name;
  PackageEnd end = PackageEnd::Failed;
  std::filesystem::path package;
  std::string reason;                ///< of a failure, in the system's or the archiver's words
  std::vector<FileProblem> missing;  ///< what an incomplete package lacks
};

/// Packs the newest version of each section of the checked notebooks into `target`/name.quillpkg, one after
/// the other in the list's order; a package that is there is updated: sections that it already has and that
/// have newer versions are exchanged, new ones added. Ends with the first that is cancelled, after which
/// nothing of it is left: neither in the temporary folder nor half a package. Fails when the temporary folder
/// cannot be worked in, or another program does.
Result<std::vector<PackageOutcome>> PackageNotebooks(const std::vector<MAFolder>& notebooks,
                                                     const std::filesystem::path& target,
                                                     const PackageTools& tools,
                                                     const PackageProgress& progress = {});

}  // namespace quill::files
