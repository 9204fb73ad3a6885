#pragma once
#include <sys/types.h>

#include "base/result.h"
#include "platform/posix/file_handle.h"
#include "platform/process_runner.h"

namespace quill::platform {

/// A program that was just started: the leader of its own process group.
struct Child {
  pid_t pid = -1;
  FileHandle output;  ///< the reading ends of its streams, non-blocking
  FileHandle errors;
};

/// Starts the program of a request; the failure is the system's error number.
Result<Child, int> StartChild(const ProcessRequest& request);

}  // namespace quill::platform
