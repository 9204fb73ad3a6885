#pragma once
#include <cstdint>

namespace quill::platform {

/// Ends another process of this user at once, without asking it (SIGKILL). False when there is none with that
/// number, or it is not this user's; numbers below 1 name none. Any thread.
bool EndProcess(std::int64_t pid);

}  // namespace quill::platform
