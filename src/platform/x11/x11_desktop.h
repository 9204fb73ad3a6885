#pragma once
#include "platform/desktop.h"
#include "platform/x11/x11_script_runner.h"

namespace quill::platform::x11 {

/// The desktop of an X display: OneNote is the window that the pattern finds (a browser with OneNote for
/// the web, or a wrapper of it).
class X11Desktop final : public Desktop {
 public:
  X11Desktop(X11Connection& connection, X11Pasteboard& pasteboard, const X11Notes& notes,
             std::function<std::string()> targetPattern);

  ScriptResult RunScript(std::string_view script) override;
  bool ApplicationInstalled(std::string_view bundlePath) override;
  bool OneNoteRunning() override;
  std::int64_t GetIdleSeconds() override;

  /// True while OneNote's window is the active one.
  bool TargetIsActive() const;

  /// Sets how a link is opened ("open location"); without it such scripts are `Unsupported`.
  void OnOpenLocation(std::function<bool(std::string_view url)> open) {
    m_world.openLocation = std::move(open);
  }

 private:
  X11ScriptWorld m_world;
};

}  // namespace quill::platform::x11
