#include "platform/mac/mac_script_errors.h"

#include <algorithm>
#include <array>

namespace quill::platform::mac {
namespace {

struct ErrorRange {
  long first;
  long last;
  ScriptProblem problem;
};

constexpr std::array kErrors = {
    ErrorRange{0, 0, ScriptProblem::None},
    // Permission: "Automation" is asked for per application, "Accessibility" for keys.
    ErrorRange{1002, 1002, ScriptProblem::NotPermitted},      // not allowed to send keystrokes
    ErrorRange{-1719, -1719, ScriptProblem::NotPermitted},    // not allowed assistive access, up to 10.14
    ErrorRange{-1744, -1743, ScriptProblem::NotPermitted},    // refused, or not yet asked for
    ErrorRange{-10004, -10004, ScriptProblem::NotPermitted},  // privilege violation
    ErrorRange{-25211, -25211, ScriptProblem::NotPermitted},  // not allowed assistive access
    // The application itself.
    ErrorRange{-43, -43, ScriptProblem::TargetMissing},        // no such file
    ErrorRange{-128, -128, ScriptProblem::TargetMissing},      // "Where is the application?" was cancelled
    ErrorRange{-600, -600, ScriptProblem::TargetMissing},      // not running
    ErrorRange{-606, -606, ScriptProblem::TargetMissing},      // a process in the background only
    ErrorRange{-609, -609, ScriptProblem::TargetMissing},      // connection invalid
    ErrorRange{-1728, -1728, ScriptProblem::TargetMissing},    // System Events has no such process
    ErrorRange{-10660, -10660, ScriptProblem::TargetMissing},  // in the bin
    ErrorRange{-10814, -10814, ScriptProblem::TargetMissing},  // not installed
    ErrorRange{-10827, -10827, ScriptProblem::TargetMissing},  // nothing to execute in the bundle
    // No reply: timed out, or no longer waited for.
    ErrorRange{-1712, -1711, ScriptProblem::NoAnswer},
    // The text: not understood by the compiler, or by the application that it was for.
    ErrorRange{-1708, -1708, ScriptProblem::BadScript},
    ErrorRange{-1700, -1700, ScriptProblem::BadScript},
    ErrorRange{-1753, -1750, ScriptProblem::BadScript},
    ErrorRange{-2763, -2700, ScriptProblem::BadScript},
};

}  // namespace

ScriptProblem ProblemOfScriptError(long number) {
  const auto* found = std::find_if(kErrors.begin(), kErrors.end(), [number](const ErrorRange& range) {
    return range.first <= number && number <= range.last;
  });
  return found == kErrors.end() ? ScriptProblem::NoAnswer : found->problem;
}

ScriptResult ScriptFailure(long number, std::string_view application, std::string_view message) {
  ScriptResult result{ProblemOfScriptError(number), "AppleScript error " + std::to_string(number)};
  if (!application.empty()) result.detail.append(" from ").append(application);
  if (!message.empty()) result.detail.append(": ").append(message);
  return result;
}

}  // namespace quill::platform::mac
