#pragma once
#include <string_view>

#include "platform/desktop.h"

namespace quill::platform::mac {

/// What an AppleScript error number means for a command. Zero is no error; a number that is not known
/// counts as `NoAnswer`, the problem after which another try may help.
ScriptProblem ProblemOfScriptError(long number);

/// The outcome of a script that ended with an error: `application` is the one that the error came from,
/// `message` the system's own words. Either may be empty.
ScriptResult ScriptFailure(long number, std::string_view application, std::string_view message);

}  // namespace quill::platform::mac
