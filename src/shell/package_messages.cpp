#include "shell/package_messages.h"

#include <algorithm>

namespace quill::shell {
namespace {

using files::PackageEnd;
using files::UnpackEnd;

constexpr std::size_t kNamedInMessage = 10;

void AddLine(std::string& text, const std::string& line) {
  if (!text.empty()) text += '\n';
  text += line;
}

/// The sections that a package lacks, the first of them by name.
void AddMissing(const StringTable& strings, std::string& text, const files::PackageOutcome& outcome) {
  AddLine(text, strings.Format("errPackageIncomplete", {outcome.name}));
  const std::size_t named = std::min(outcome.missing.size(), kNamedInMessage);
  for (std::size_t i = 0; i < named; ++i) {
    const files::FileProblem& problem = outcome.missing[i];
    AddLine(text, problem.file.filename().string() + ": " + problem.reason);
  }
  const std::size_t more = outcome.missing.size() - named;
  if (more > 0) AddLine(text, strings.Format("strAndMore", {std::to_string(more)}));
}

std::string WithReason(std::string text, const std::string& reason) {
  if (!reason.empty()) AddLine(text, reason);
  return text;
}

}  // namespace

std::string PackagesMessage(const StringTable& strings, const std::vector<files::PackageOutcome>& outcomes) {
  std::string problems;
  std::string packed;
  bool isCancelled = false;
  for (const files::PackageOutcome& outcome : outcomes) {
    if (outcome.end == PackageEnd::Failed)
      AddLine(problems, strings.Format("errPackage", {outcome.name, outcome.reason}));
    if (outcome.end == PackageEnd::Incomplete) AddMissing(strings, problems, outcome);
    if (outcome.end == PackageEnd::Packed) AddLine(packed, outcome.name);
    isCancelled = isCancelled || outcome.end == PackageEnd::Cancelled;
  }
  if (isCancelled && !packed.empty()) AddLine(problems, strings.Format("msgPackageStopped", {packed}));
  if (problems.empty() && !isCancelled) return std::string(strings.Text("msgCompletePackage"));
  return problems;
}

std::string UnpackNotes(const StringTable& strings, const files::UnpackOutcome& outcome) {
  std::string notes;
  if (outcome.end == UnpackEnd::Partly) AddLine(notes, strings.Format("msgRestorePartly", {outcome.reason}));
  if (outcome.kept > 0) AddLine(notes, strings.Format("msgRestoreKept", {std::to_string(outcome.kept)}));
  if (outcome.removedLinks > 0)
    AddLine(notes, strings.Format("msgRestoreLinks", {std::to_string(outcome.removedLinks)}));
  return notes;
}

std::string RestoreMessage(const StringTable& strings, const files::UnpackOutcome& outcome) {
  switch (outcome.end) {
    case UnpackEnd::Unpacked:
      return WithReason(std::string(strings.Text("msgRestoreSuccess")), UnpackNotes(strings, outcome));
    case UnpackEnd::Partly:
      return UnpackNotes(strings, outcome);
    case UnpackEnd::Nothing:
    case UnpackEnd::NoFile:
      return WithReason(std::string(strings.Text("errRestoreFailure")), outcome.reason);
    case UnpackEnd::NoFolder:
      return "Create restore folder error!";
    case UnpackEnd::NoProgram:
      return strings.Format("errRestoreProgram", {outcome.reason});
    case UnpackEnd::DiskFull:
      return std::string(strings.Text("errRestoreDiskFull"));
    case UnpackEnd::Cancelled:
      return {};
  }
  return {};
}

}  // namespace quill::shell
