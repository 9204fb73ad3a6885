#pragma once
#include <xcb/xcb.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/result.h"
#include "platform/x11/x11_atoms.h"
#include "platform/x11/xcb_reply.h"

namespace quill::platform::x11 {

using Deadline = std::chrono::steady_clock::time_point;

inline Deadline In(std::chrono::milliseconds time) {
  return std::chrono::steady_clock::now() + time;
}

/// One connection to the X server with an invisible window of its own. Belongs to one thread.
class X11Connection {
 public:
  /// Connects to `display` (null: the environment's). Fails with a text for the log.
  static Result<std::unique_ptr<X11Connection>> Open(const char* display);
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  xcb_connection_t* get() const { return m_connection; }
  const X11Atoms& atoms() const { return m_atoms; }
  xcb_window_t root() const { return m_root; }
  /// A window that is never shown; reports changes of its properties.
  xcb_window_t window() const { return m_window; }
  bool Broken() const { return xcb_connection_has_error(m_connection) != 0; }

  /// What all windows of one X client have in common; tells whether two windows are of one program.
  xcb_window_t ClientOf(xcb_window_t window) const;

  /// The server's present time. One round trip; 0 when the server does not answer.
  xcb_timestamp_t ServerTime();

  /// Hands every event to `seen` as it comes until `seen` is content; false at the deadline or when the
  /// connection broke.
  bool WaitForEvent(Deadline deadline, const std::function<bool(const xcb_generic_event_t&)>& seen);

  /// Waits until `condition` holds, asking again after every event and at least every 10 ms (not every
  /// change that matters is announced). False at the deadline.
  bool WaitUntil(Deadline deadline, const std::function<bool()>& condition);

  /// A property as 32-bit values; empty when it is missing or of another format.
  std::vector<std::uint32_t> Words(xcb_window_t window, xcb_atom_t property) const;
  /// A property as bytes, at most 4 KB of it; empty when it is missing.
  std::string Text(xcb_window_t window, xcb_atom_t property) const;

 private:
  X11Connection() = default;
  bool WaitForInput(Deadline deadline) const;

  xcb_connection_t* m_connection = nullptr;
  X11Atoms m_atoms{};
  xcb_window_t m_root = XCB_NONE;
  xcb_window_t m_window = XCB_NONE;
};

/// Nobody else's requests are handled while this lives, so nothing can change between a check and what
/// follows from it. Keep it short.
class ServerGrab {
 public:
  explicit ServerGrab(xcb_connection_t* connection) : m_connection(connection) {
    xcb_grab_server(connection);
  }
  ~ServerGrab() {
    xcb_ungrab_server(m_connection);
    xcb_flush(m_connection);
  }
  ServerGrab(const ServerGrab&) = delete;
  ServerGrab& operator=(const ServerGrab&) = delete;

 private:
  xcb_connection_t* m_connection;
};

}  // namespace quill::platform::x11
