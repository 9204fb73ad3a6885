#pragma once
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/process_runner.h"

namespace quill::files {

/// An outside program that works on archives.
struct ToolRun {
  std::vector<std::string> programs;  ///< paths and names; the first that there is runs
  std::vector<std::string> arguments;
  std::filesystem::path folder;
  std::function<bool()> isCancelled;
};

/// Runs it to its end, however long that takes, unless cancelled.
platform::ProcessResult RunTool(platform::ProcessRunner& runner, const ToolRun& run);

/// Why it failed, in the words of the program or of the system: the line that speaks most clearly of an
/// error, else the last one that is not just a file's name.
std::string ToolProblem(const platform::ProcessResult& result);

}  // namespace quill::files
