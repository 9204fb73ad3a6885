#pragma once
#include <string>

#include "platform/x11/x11_connection.h"

namespace quill::platform::x11 {

/// What a look at the target shows.
enum class TargetState { Ready, NotActive, FocusElsewhere, Closed };

/// What came of asking a window for a sign of life.
enum class Pong { Answered, Silent, NotSupported, Closed };

/// The other application's window while a script runs.
class X11Target {
 public:
  X11Target(X11Connection& connection, xcb_window_t window);
  ~X11Target();
  X11Target(const X11Target&) = delete;
  X11Target& operator=(const X11Target&) = delete;

  xcb_window_t window() const { return m_window; }
  std::string Title() const;
  bool Exists() const;

  /// `Ready` when it is the active window and has the keyboard focus. One round trip when it is.
  TargetState Look() const;

  /// Asks the window manager, as a pager does, to make it the active window.
  void AskToBecomeActive();

  /// Sends a ping behind the keys sent so far and waits for its answer: the application's event loop has
  /// then taken the keys.
  Pong Ping(Deadline deadline);

 private:
  bool HasFocus(xcb_window_t focus) const;

  X11Connection& m_connection;
  xcb_window_t m_window;
  xcb_timestamp_t m_lastPing = 0;
};

}  // namespace quill::platform::x11
