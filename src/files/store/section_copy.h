#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/file_dates.h"

namespace quill::files {

/// What could not be read or written, and the system's reason.
struct FileProblem {
  std::filesystem::path file;
  std::string reason;
};

/// One step of copying a notebook: a folder to be made, or a section to be copied.
struct SectionStep {
  enum class Kind { Folder, Section };
  Kind kind;
  std::filesystem::path from;
  std::filesystem::path to;  ///< relative to where the notebook is copied to
};

/// What copying a notebook means, in the order of the file system's listings, and what cannot be read of it.
struct SectionPlan {
  std::vector<SectionStep> steps;
  std::vector<FileProblem> problems;
  std::size_t sections = 0;
  bool isCancelled = false;
};

using IsCancelled = std::function<bool()>;

/// Looks through a notebook's folder with all its subfolders for the newest version of each section (see
/// `ChooseSections`). Links to folders are followed, each folder once. Any thread.
SectionPlan PlanSections(const std::filesystem::path& source, const platform::FileDates& dates,
                         const IsCancelled& isCancelled = {});

/// Told before each section how many were copied and how many there are (0 while they are still looked for);
/// false ends the copying.
using CopyProgress =
    std::function<bool(std::size_t copied, std::size_t total, const std::filesystem::path& section)>;

struct CopyReport {
  std::size_t copied = 0;
  std::vector<FileProblem> problems;  ///< everything else was copied
  bool isCancelled = false;
};

/// Copies the newest version of each section under the section's own name, folder by folder; the times of
/// last change stay. `target` is there. What exists in it stays as it is. What a folder that cannot be made
/// would have held is left out.
CopyReport CopySections(const std::filesystem::path& source, const std::filesystem::path& target,
                        const platform::FileDates& dates, const CopyProgress& progress = {});

}  // namespace quill::files
