#pragma once
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"
#include "platform/native_backend.h"

namespace quill::platform::x11 {

/// Desktop and pasteboard of an X display. All calls belong to one thread, the command thread; a thread of
/// the backend's own answers other programs that read what was pasted.
class X11Backend final : public NativeBackend {
 public:
  /// Connects to `display` (null: the environment's). `targetPattern` is asked before each script for a part
  /// of the title or class of OneNote's window. Fails with a text for the log.
  static Result<std::unique_ptr<X11Backend>> Open(const char* display,
                                                  std::function<std::string()> targetPattern);
  /// Leaves what this program has on the clipboard to the clipboard manager, if there is one.
  ~X11Backend() override;

  std::string_view name() const override { return "x11"; }
  Desktop& desktop() override;
  Pasteboard& pasteboard() override;
  bool TargetIsActive() override;

  /// Sets who gets the lines for `--explain`: what was waited for, what was seen; never page content.
  void OnNote(std::function<void(std::string_view)> sink) override;
  /// Sets how "open location" opens a link; without it such scripts are `Unsupported`.
  void OnOpenLocation(std::function<bool(std::string_view url)> open);

 private:
  struct Parts;
  explicit X11Backend(std::unique_ptr<Parts> parts);
  std::unique_ptr<Parts> m_parts;
};

}  // namespace quill::platform::x11
