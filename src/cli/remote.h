#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "cli/commands.h"

namespace quill::cli {

/// Has the running application run an action on the live selection, waits for its end, and prints its
/// messages (standard error) and steps. Returns the exit status. Stops with `kWorkFailed` when no
/// application is running, or when it refuses.
int RunInApplication(const Call& call, const std::string& action, std::optional<std::int64_t> argument);

}  // namespace quill::cli
