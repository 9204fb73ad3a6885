#pragma once
#include <string>
#include <vector>

#include "base/result.h"

namespace quill::platform {

/// Starts a program that lives on its own: in a session of its own, standard streams on the null device, its
/// end reaped without anybody waiting. `command` is the program (looked up on PATH) and its arguments; no
/// shell sees them. Fails with the system's reason when it cannot be started. Any thread.
Status<> StartDetached(const std::vector<std::string>& command);

/// As above, but waits for the program's end; fails when its exit status is not 0. For programs that end soon
/// by themselves.
Status<> RunToEnd(const std::vector<std::string>& command);

}  // namespace quill::platform
