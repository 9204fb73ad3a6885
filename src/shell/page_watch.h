#pragma once
#include <functional>

#include "online/page_monitor.h"
#include "platform/background_http.h"
#include "platform/clock.h"
#include "platform/user_interface.h"
#include "shell/globals.h"
#include "shell/log.h"
#include "shell/string_table.h"

namespace quill::shell {

/// The number of pages of the user's own account, watched while the program runs: the practice notebook's is
/// not. Command thread.
class PageWatch {
 public:
  struct Parts {
    Globals& globals;
    platform::BackgroundHttp& http;
    const platform::Clock& clock;
    platform::UserInterface& ui;
    const StringTable& strings;
    Log& log;
    /// Finds out whether a menu or a modal window is open, and tells it once, then or later, on the command
    /// thread.
    std::function<void(std::function<void(bool isFree)>)> askForScreen;
  };

  explicit PageWatch(Parts parts);

  /// To be called once a second between commands. Every second call does something, unless the screen is
  /// taken.
  void Tick();

 private:
  void Warn(const online::LostPages& lost);

  Parts m_parts;
  online::PageMonitor m_monitor;
  bool m_isDue = true;
  bool m_isAsking = false;
};

}  // namespace quill::shell
