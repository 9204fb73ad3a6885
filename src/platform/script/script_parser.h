#pragma once
#include <string_view>

#include "base/result.h"
#include "platform/script/script_step.h"

namespace quill::platform::script {

/// Parses the small part of AppleScript that the script table is written in: `delay`, `tell
/// application/process … end tell`, `reopen`, `activate`, `keystroke … using …`, `key code … using …`,
/// `open location` and `run VB macro`. Lines may end in LF or CR LF; blank lines and `--` comments are
/// skipped; strings take the escapes \" and \\.
///
/// Anything else is a failure that names the line and what was not understood. O(text).
Result<Program> ParseScript(std::string_view text);

}  // namespace quill::platform::script
