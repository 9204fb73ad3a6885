#pragma once
#include <string_view>

#include "platform/desktop.h"

namespace quill::platform::mac {

/// Compiles and runs an AppleScript text to its end.
///
/// The system allows this on the main thread only: from any other thread the text is handed there and
/// the outcome awaited. A text that the main thread has not taken up within 3 s is never run. The main
/// thread is busy until the script ends, which for the script table is its own delays, 0.5 to 1.5 s.
ScriptResult RunAppleScript(std::string_view script);

}  // namespace quill::platform::mac
