#include "platform/posix/end_process.h"

#include <signal.h>

namespace quill::platform {

bool EndProcess(std::int64_t pid) {
  return pid > 0 && ::kill(static_cast<pid_t>(pid), SIGKILL) == 0;
}

}  // namespace quill::platform
