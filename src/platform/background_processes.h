#pragma once
#include <functional>

#include "platform/process_runner.h"

namespace quill::platform {

/// Programs that are started and that no command waits for. Command thread.
class BackgroundProcesses {
 public:
  using Done = std::function<void(ProcessResult)>;

  virtual ~BackgroundProcesses() = default;

  /// Starts the program and returns at once; several may run side by side. `done` is called once on the
  /// command thread, never from within `Start`; it is dropped when this program ends first, and the other one
  /// is ended then.
  virtual void Start(ProcessRequest request, Done done) = 0;
};

}  // namespace quill::platform
