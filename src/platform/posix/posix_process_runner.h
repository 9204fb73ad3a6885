#pragma once
#include "platform/process_runner.h"

namespace quill::platform {

/// Programs as children of this process, each in a process group of its own, with default signals and no open
/// file but its three streams. What is left of the group when the program has ended on its own is not
/// touched.
class PosixProcessRunner final : public ProcessRunner {
 public:
  ProcessResult Run(const ProcessRequest& request) override;
};

}  // namespace quill::platform
