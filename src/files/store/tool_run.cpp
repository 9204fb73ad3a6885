#include "files/store/tool_run.h"

#include <fmt/format.h>

#include <chrono>
#include <string_view>
#include <vector>

#include "content/unicode_text.h"

namespace quill::files {
namespace {

using platform::ProcessEnd;

constexpr std::chrono::hours kLongest(24);  // a large notebook on a slow network disk; Cancel is there

/// What the programs write for each file while all goes well; the names in these lines may read like
/// anything.
bool IsRoutine(std::string_view line) {
  for (const std::string_view start :
       {"adding:", "updating:", "freshening:", "deleting:", "extracting",
        "inflating:", "creating:", "linking:", "Archive:", "Extracting cabinet:"}) {
    if (line.starts_with(start)) return true;
  }
  return false;
}

/// The lines of a stream that say something.
std::vector<std::string_view> Complaints(std::string_view text) {
  std::vector<std::string_view> lines;
  for (const std::string_view piece : content::SplitAtNewlines(text)) {
    const std::string_view line = content::TrimWhite(piece);
    if (!line.empty() && !IsRoutine(line)) lines.push_back(line);
  }
  return lines;
}

}  // namespace

platform::ProcessResult RunTool(platform::ProcessRunner& runner, const ToolRun& run) {
  platform::ProcessResult result;
  for (const std::string& program : run.programs) {
    platform::ProcessRequest request;
    request.command.push_back(program);
    request.command.insert(request.command.end(), run.arguments.begin(), run.arguments.end());
    request.folder = run.folder;
    request.deadline = kLongest;
    request.isCancelled = run.isCancelled;
    result = runner.Run(request);
    if (result.end != ProcessEnd::NotFound) break;
  }
  return result;
}

std::string ToolProblem(const platform::ProcessResult& result) {
  if (!result.reason.empty()) return result.reason;
  std::vector<std::string_view> lines = Complaints(result.errors);
  const std::vector<std::string_view> further = Complaints(result.output);
  lines.insert(lines.end(), further.begin(), further.end());
  for (const std::string_view word : {"error", "bad", "not found", "cannot", "unable", "no valid"}) {
    for (const std::string_view line : lines) {
      if (line.find(word) != std::string_view::npos) return std::string(line.substr(0, line.find(".  ")));
    }
  }
  if (!lines.empty()) return std::string(lines.back());
  return fmt::format("{} {}", result.end == ProcessEnd::Signalled ? "signal" : "status", result.status);
}

}  // namespace quill::files
