#include "platform/x11/x11_target.h"

#include <algorithm>

#include "platform/x11/x11_window_finder.h"

namespace quill::platform::x11 {
namespace {

constexpr std::uint32_t kSourcePager = 2;
constexpr int kDeepestWindow = 32;

void SendMessageTo(const X11Connection& connection, xcb_window_t to, std::uint32_t mask,
                   const xcb_client_message_event_t& message) {
  xcb_send_event(connection.get(), 0, to, mask, reinterpret_cast<const char*>(&message));
}

xcb_client_message_event_t Message(xcb_window_t window, xcb_atom_t type) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = type;
  return message;
}

void Listen(const X11Connection& connection, xcb_window_t window, std::uint32_t events) {
  xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace

X11Target::X11Target(X11Connection& connection, xcb_window_t window)
    : m_connection(connection), m_window(window) {
  // Answers to a ping go to the root window, and so do changes of the active window.
  Listen(connection, connection.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
  Listen(connection, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE);
}

X11Target::~X11Target() {
  // Nobody reads events between two scripts: none may be sent then, or they pile up in the server.
  Listen(m_connection, m_connection.root(), XCB_EVENT_MASK_NO_EVENT);
  Listen(m_connection, m_window, XCB_EVENT_MASK_NO_EVENT);
  xcb_flush(m_connection.get());
}

std::string X11Target::Title() const {
  return WindowTitle(m_connection, m_window);
}

bool X11Target::Exists() const {
  xcb_connection_t* c = m_connection.get();
  return Reply(c, xcb_get_window_attributes(c, m_window), xcb_get_window_attributes_reply) != nullptr;
}

bool X11Target::HasFocus(xcb_window_t focus) const {
  xcb_connection_t* c = m_connection.get();
  for (int depth = 0; depth < kDeepestWindow && focus > XCB_INPUT_FOCUS_POINTER_ROOT; ++depth) {
    if (focus == m_window) return true;
    const auto tree = Reply(c, xcb_query_tree(c, focus), xcb_query_tree_reply);
    if (!tree) return false;
    focus = tree->parent;
  }
  return false;
}

TargetState X11Target::Look() const {
  xcb_connection_t* c = m_connection.get();
  const auto attributes = xcb_get_window_attributes(c, m_window);
  const auto active = xcb_get_property(c, 0, m_connection.root(), m_connection.atoms().netActiveWindow,
                                       XCB_ATOM_WINDOW, 0, 1);
  const auto focus = xcb_get_input_focus(c);
  const auto exists = Reply(c, attributes, xcb_get_window_attributes_reply);
  const auto activeIs = Reply(c, active, xcb_get_property_reply);
  const auto focusIs = Reply(c, focus, xcb_get_input_focus_reply);
  if (!exists) return TargetState::Closed;
  if (!activeIs || activeIs->value_len != 1 ||
      *static_cast<const xcb_window_t*>(xcb_get_property_value(activeIs.get())) != m_window) {
    return TargetState::NotActive;
  }
  return focusIs && HasFocus(focusIs->focus) ? TargetState::Ready : TargetState::FocusElsewhere;
}

void X11Target::AskToBecomeActive() {
  xcb_client_message_event_t message = Message(m_window, m_connection.atoms().netActiveWindow);
  message.data.data32[0] = kSourcePager;
  message.data.data32[1] = m_connection.ServerTime();
  SendMessageTo(m_connection, m_connection.root(),
                XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, message);
  xcb_flush(m_connection.get());
}

Pong X11Target::Ping(Deadline deadline) {
  const X11Atoms& atoms = m_connection.atoms();
  const std::vector<std::uint32_t> protocols = m_connection.Words(m_window, atoms.wmProtocols);
  if (std::find(protocols.begin(), protocols.end(), atoms.netWmPing) == protocols.end()) {
    return Exists() ? Pong::NotSupported : Pong::Closed;
  }
  m_lastPing = std::max(m_connection.ServerTime(), m_lastPing + 1);
  xcb_client_message_event_t message = Message(m_window, atoms.wmProtocols);
  message.data.data32[0] = atoms.netWmPing;
  message.data.data32[1] = m_lastPing;
  message.data.data32[2] = m_window;
  SendMessageTo(m_connection, m_window, XCB_EVENT_MASK_NO_EVENT, message);
  bool closed = false;
  const bool seen = m_connection.WaitForEvent(deadline, [&](const xcb_generic_event_t& event) {
    if (EventType(event) == XCB_DESTROY_NOTIFY) {
      return closed = As<xcb_destroy_notify_event_t>(event).window == m_window;
    }
    if (EventType(event) != XCB_CLIENT_MESSAGE) return false;
    const auto& answer = As<xcb_client_message_event_t>(event);
    return answer.type == atoms.wmProtocols && answer.data.data32[0] == atoms.netWmPing &&
           answer.data.data32[1] == m_lastPing && answer.data.data32[2] == m_window;
  });
  if (closed || (!seen && !Exists())) return Pong::Closed;
  return seen ? Pong::Answered : Pong::Silent;
}

}  // namespace quill::platform::x11
