#include "files/process_problem.h"

#include <fmt/format.h>

#include "content/unicode_text.h"

namespace quill::files {

std::string ProcessProblem(const std::string& program, const platform::ProcessResult& result) {
  switch (result.end) {
    case platform::ProcessEnd::Exited:
      break;
    case platform::ProcessEnd::Signalled:
      return fmt::format("{} was ended by signal {}", program, result.status);
    case platform::ProcessEnd::NotFound:
    case platform::ProcessEnd::NotStarted:
      return fmt::format("{}: {}", program, result.reason);
    case platform::ProcessEnd::TimedOut:
      return program + " took too long";
    case platform::ProcessEnd::Cancelled:
      return program + " was cancelled";
  }
  if (result.status == 0) return {};
  const std::string_view words = content::TrimWhite(result.errors);
  return words.empty() ? fmt::format("{} failed with status {}", program, result.status) : std::string(words);
}

}  // namespace quill::files
