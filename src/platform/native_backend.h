#pragma once
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"
#include "platform/desktop.h"
#include "platform/pasteboard.h"

namespace quill::platform {

/// The platform's own way to another application's window. All calls belong to the command thread.
class NativeBackend {
 public:
  virtual ~NativeBackend() = default;

  virtual std::string_view name() const = 0;
  virtual Desktop& desktop() = 0;
  virtual Pasteboard& pasteboard() = 0;

  /// True while OneNote's window is the one that the user works in.
  virtual bool TargetIsActive() = 0;

  /// Sets who gets the lines for `--explain`; an empty sink turns them off.
  virtual void OnNote(std::function<void(std::string_view)> sink) = 0;

  /// Ends what the command thread waits for, for good: the program quits. Any thread.
  virtual void Stop() {}
};

/// Opens this platform's backend; each platform library defines it. `targetPattern` is asked before each
/// script for a part of the title or class of OneNote's window, where windows are found by that. Fails with
/// a text for the reader when there is no such desktop here.
Result<std::unique_ptr<NativeBackend>> OpenNativeBackend(std::function<std::string()> targetPattern);

}  // namespace quill::platform
