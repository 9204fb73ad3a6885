#pragma once
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "x11/x11_world.h"

namespace httplib {
class Server;
}

namespace quill::x11_test {

/// Chromium on the display with one editable page titled "OneNote", served from this process. The page
/// selects an element by itself and sends its own DOM after each change, so a test sees what the user sees.
class ChromiumWorld {
 public:
  /// `body` is the page's editable content; the element with the id `sel` is selected. Waits until the page
  /// is shown, selected and focused.
  ChromiumWorld(X11World& world, const std::string& body);
  ~ChromiumWorld();

  /// Waits until the page's DOM contains `text`; returns the DOM as it was last seen.
  std::string WaitForDom(const std::string& text,
                         std::chrono::milliseconds deadline = std::chrono::seconds(10));
  /// Puts other content into the page, selects its `#sel` and waits until that is done.
  void Reset(const std::string& body);
  /// How often the page has reported a change.
  int changes() const;

 private:
  struct Page;
  void Serve(const std::string& body);
  bool WaitUntilReady(std::chrono::milliseconds deadline);

  std::unique_ptr<Page> m_page;
  std::unique_ptr<httplib::Server> m_server;
  std::thread m_serving;
  std::filesystem::path m_profile;
  std::unique_ptr<ChildProcess> m_browser;
};

}  // namespace quill::x11_test
