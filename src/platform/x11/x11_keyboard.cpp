#include "platform/x11/x11_keyboard.h"

#include <xcb/xtest.h>

namespace quill::platform::x11 {
namespace {

void Fake(xcb_connection_t* connection, std::uint8_t event, xcb_keycode_t key) {
  xcb_test_fake_input(connection, event, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

/// A key that is down as long as this lives.
class KeyDown {
 public:
  KeyDown(xcb_connection_t* connection, xcb_keycode_t key) : m_connection(connection), m_key(key) {
    Fake(m_connection, XCB_KEY_PRESS, m_key);
  }
  ~KeyDown() { Fake(m_connection, XCB_KEY_RELEASE, m_key); }
  KeyDown(const KeyDown&) = delete;
  KeyDown& operator=(const KeyDown&) = delete;

 private:
  xcb_connection_t* m_connection;
  xcb_keycode_t m_key;
};

void PressWithin(xcb_connection_t* connection, const KeyChord& chord, std::size_t held) {
  const KeyDown key(connection, held < chord.held.size() ? chord.held[held] : chord.key);
  if (held < chord.held.size()) PressWithin(connection, chord, held + 1);
}

}  // namespace

bool CanSendKeys(const X11Connection& connection) {
  const xcb_query_extension_reply_t* test = xcb_get_extension_data(connection.get(), &xcb_test_id);
  return test && test->present;
}

bool KeyboardIsGrabbed(const X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  const auto reply = Reply(
      c,
      xcb_grab_keyboard(c, 0, connection.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
      xcb_grab_keyboard_reply);
  if (!reply || reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED || reply->status == XCB_GRAB_STATUS_FROZEN)
    return true;
  if (reply->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
  return false;
}

void SendChord(const X11Connection& connection, const KeyChord& chord) {
  PressWithin(connection.get(), chord, 0);
}

}  // namespace quill::platform::x11
