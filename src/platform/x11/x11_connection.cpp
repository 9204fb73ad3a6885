#include "platform/x11/x11_connection.h"

#include <poll.h>

#include <algorithm>
#include <cstring>

namespace quill::platform::x11 {
namespace {

constexpr std::chrono::milliseconds kRoundTrip{1000};
constexpr std::chrono::milliseconds kRecheck{10};
constexpr std::uint32_t kLongestText = 1024;  // in units of four bytes

xcb_screen_t* ScreenOf(xcb_connection_t* connection, int number) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  while (number-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
  return screens.rem > 0 ? screens.data : nullptr;
}

}  // namespace

Result<std::unique_ptr<X11Connection>> X11Connection::Open(const char* display) {
  std::unique_ptr<X11Connection> result(new X11Connection);
  int number = 0;
  result->m_connection = xcb_connect(display, &number);
  const xcb_screen_t* screen = result->Broken() ? nullptr : ScreenOf(result->m_connection, number);
  if (!screen) return Failure{std::string("no X display to connect to")};
  result->m_root = screen->root;
  result->m_atoms = X11Atoms::Intern(result->m_connection);
  result->m_window = xcb_generate_id(result->m_connection);
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(result->m_connection, 0, result->m_window, screen->root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  if (result->ServerTime() == XCB_CURRENT_TIME) return Failure{std::string("the X display does not answer")};
  return result;
}

X11Connection::~X11Connection() {
  xcb_disconnect(m_connection);
}

xcb_window_t X11Connection::ClientOf(xcb_window_t window) const {
  return window & ~xcb_get_setup(m_connection)->resource_id_mask;
}

xcb_timestamp_t X11Connection::ServerTime() {
  xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, m_atoms.stampProperty, XCB_ATOM_STRING, 8,
                      0, "");
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  WaitForEvent(In(kRoundTrip), [&](const xcb_generic_event_t& event) {
    if (EventType(event) != XCB_PROPERTY_NOTIFY) return false;
    const auto& change = As<xcb_property_notify_event_t>(event);
    if (change.window != m_window || change.atom != m_atoms.stampProperty) return false;
    time = change.time;
    return true;
  });
  return time;
}

bool X11Connection::WaitForInput(Deadline deadline) const {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  pollfd input{xcb_get_file_descriptor(m_connection), POLLIN, 0};
  return poll(&input, 1, std::max(0, static_cast<int>(left.count()))) > 0;
}

bool X11Connection::WaitForEvent(Deadline deadline,
                                 const std::function<bool(const xcb_generic_event_t&)>& seen) {
  xcb_flush(m_connection);
  for (;;) {
    while (const XcbEvent event{xcb_poll_for_event(m_connection)}) {
      if (seen(*event)) return true;
    }
    if (Broken() || std::chrono::steady_clock::now() >= deadline) return false;
    WaitForInput(deadline);
  }
}

bool X11Connection::WaitUntil(Deadline deadline, const std::function<bool()>& condition) {
  while (!condition()) {
    if (Broken() || std::chrono::steady_clock::now() >= deadline) return false;
    WaitForEvent(std::min(deadline, In(kRecheck)), [](const xcb_generic_event_t&) { return true; });
  }
  return true;
}

std::vector<std::uint32_t> X11Connection::Words(xcb_window_t window, xcb_atom_t property) const {
  const auto reply =
      Reply(m_connection, xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, 1 << 16),
            xcb_get_property_reply);
  if (!reply || reply->format != 32) return {};
  std::vector<std::uint32_t> words(reply->value_len);
  if (!words.empty()) std::memcpy(words.data(), xcb_get_property_value(reply.get()), words.size() * 4);
  return words;
}

std::string X11Connection::Text(xcb_window_t window, xcb_atom_t property) const {
  const auto reply =
      Reply(m_connection, xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, kLongestText),
            xcb_get_property_reply);
  if (!reply || reply->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

}  // namespace quill::platform::x11
