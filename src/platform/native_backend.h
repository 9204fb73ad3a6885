#pragma once
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/desktop.h"
#include "platform/hot_keys.h"
#include "platform/pasteboard.h"
#include "platform/workspace.h"

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

/// True where OneNote's window is found by a pattern of its title or class. Each platform library defines it.
extern const bool kFindsWindowsByTitle;

/// This platform's own hot keys; each platform library defines it. Fails with a text for the reader. GUI
/// thread.
Result<std::unique_ptr<HotKeyRegistrar>> OpenNativeHotKeys();

/// The system's link events; null where links come on the command line instead. GUI thread, once.
std::unique_ptr<UrlEvents> OpenUrlEvents();

/// The languages that the user wants, best first, as the system names them ("de-AT", "zh_CN.UTF-8"). Any
/// thread.
std::vector<std::string> PreferredLanguages();

/// Hands files and addresses to the system. Any thread.
std::unique_ptr<Workspace> OpenWorkspace();

}  // namespace quill::platform
