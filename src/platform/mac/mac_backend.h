#pragma once
#include "platform/backend.h"
#include "platform/mac/mac_desktop.h"
#include "platform/mac/mac_pasteboard.h"

namespace quill::platform::mac {

/// Desktop and pasteboard of macOS. Used from the command thread.
class MacBackend {
 public:
  MacBackend();

  Backend backend() { return {"mac", &m_desktop, &m_pasteboard}; }

  /// Ends what the command thread waits for, for good. Called when the program quits, from any thread.
  void Stop() { m_pasteboard.Stop(); }

 private:
  MacDesktop m_desktop;
  MacPasteboard m_pasteboard;
};

}  // namespace quill::platform::mac
