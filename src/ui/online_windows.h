#pragma once
#include <functional>
#include <string>

namespace quill::shell {
class StringTable;
}

namespace quill::ui {

class WindowFactory;

/// What the windows of the online commands have the program do.
struct OnlineWindowHooks {
  std::function<void(const std::string& text)> tell;          ///< an alert that nobody waits for
  std::function<void(const std::string& link)> openLocation;  ///< opens a client link in OneNote
  std::function<void()> refreshNavigation;  ///< asks for the navigation pane of the page that is open now
};

/// Adds the windows of the online commands. `strings` and what the hooks refer to must outlive the factory.
/// GUI thread.
void AddOnlineWindows(WindowFactory& windows, const shell::StringTable& strings,
                      const OnlineWindowHooks& hooks);

}  // namespace quill::ui
