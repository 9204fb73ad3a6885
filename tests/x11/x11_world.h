#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/x11/x11_backend.h"
#include "platform/x11/x11_connection.h"
#include "x11/child_process.h"

namespace quill::x11_test {

/// An X server of its own with a window manager; both end with the object.
class X11World {
 public:
  X11World();

  /// The display's name, such as ":7".
  const std::string& display() const { return m_display; }
  /// The test's own connection to it.
  platform::x11::X11Connection& connection() { return *m_connection; }

  /// Starts a program on this display.
  std::unique_ptr<ChildProcess> Start(std::vector<std::string> command) const;

  /// Starts an adversary window (see adversary_window.h for its manners) and waits until it is active.
  std::unique_ptr<ChildProcess> Adversary(std::vector<std::string> manners = {}) const;

  /// Waits until the window with this title is the active one and has the focus, for the window manager too.
  bool BecomesActive(const std::string& title) const;

  /// A program that owns the clipboard: a form's name and its bytes, without line feeds.
  std::unique_ptr<ChildProcess> ClipboardOwner(
      const std::vector<std::pair<std::string, std::string>>& forms) const;

  /// A backend on this display whose notes go to `notes()`, and to `onNote` where set.
  std::unique_ptr<platform::x11::X11Backend> Backend(std::string pattern = "onenote");
  const std::vector<std::string>& notes() const { return m_notes; }
  /// Called with each note; a test disturbs at an exact step by it.
  std::function<void(std::string_view)> onNote;

  /// What the user does with a key, by keysym.
  void Press(xcb_keysym_t symbol);
  void Release(xcb_keysym_t symbol);

  /// The clipboard's contents in one form, read by a program that has nothing to do with this one.
  std::string ClipboardAs(const std::string& form) const;

 private:
  xcb_keycode_t KeyOf(xcb_keysym_t symbol);
  void Fake(std::uint8_t event, xcb_keysym_t symbol);

  std::unique_ptr<ChildProcess> m_server;
  std::string m_display;
  std::unique_ptr<platform::x11::X11Connection> m_connection;
  std::unique_ptr<ChildProcess> m_windowManager;
  std::vector<std::string> m_notes;
};

/// The keys among a window's lines, joined by blanks.
std::string KeysOf(ChildProcess& window);

}  // namespace quill::x11_test
