#include "platform/x11/x11_hot_keys.h"

namespace quill::platform::x11 {
namespace {

constexpr std::uint16_t kModifiers = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT;

/// The hot key's modifiers with every state of the lock keys.
std::vector<std::uint16_t> AllStates(const std::vector<std::uint16_t>& locks) {
  std::vector<std::uint16_t> states = {kModifiers};
  for (const std::uint16_t lock : locks) {
    const std::size_t count = states.size();
    for (std::size_t i = 0; i < count; ++i) states.push_back(states[i] | lock);
  }
  return states;
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

Result<std::unique_ptr<X11HotKeys>> X11HotKeys::Open(const char* display) {
  Result<std::unique_ptr<X11Connection>> connection = X11Connection::Open(display);
  if (!connection.ok()) return Failure{connection.error()};
  return std::unique_ptr<X11HotKeys>(new X11HotKeys(std::move(*connection)));
}

X11HotKeys::~X11HotKeys() {
  ReleaseAll();
}

bool X11HotKeys::Grab(xcb_keycode_t code, const X11KeyMap& keys) {
  xcb_connection_t* c = m_connection->get();
  std::vector<xcb_void_cookie_t> cookies;
  for (const std::uint16_t state : AllStates(keys.LockMasks())) {
    cookies.push_back(xcb_grab_key_checked(c, 0, m_connection->root(), state, code, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_ASYNC));
  }
  bool granted = true;
  for (const xcb_void_cookie_t cookie : cookies) {
    if (const XcbPointer<xcb_generic_error_t> error{xcb_request_check(c, cookie)}) granted = false;
  }
  if (!granted) {
    for (const std::uint16_t state : AllStates(keys.LockMasks()))
      xcb_ungrab_key(c, code, m_connection->root(), state);
    xcb_flush(c);
  }
  return granted;
}

std::string X11HotKeys::Register(const HotKey& key) {
  const X11KeyMap keys(*m_connection);
  const std::optional<KeyChord> chord = keys.ForCharacter(Lower(key.letter), {});
  if (!chord) return std::string("there is no key ") + key.letter + " on this keyboard";
  if (!Grab(chord->key, keys)) {
    return std::string("Control+Alt+Shift+") + key.letter + " is taken by another program";
  }
  m_registered.push_back({key, chord->key});
  return {};
}

void X11HotKeys::ReleaseAll() {
  for (const Registered& one : m_registered) {
    xcb_ungrab_key(m_connection->get(), one.code, m_connection->root(), XCB_MOD_MASK_ANY);
  }
  xcb_flush(m_connection->get());
}

void X11HotKeys::RegisterAnew() {
  ReleaseAll();
  const std::vector<Registered> before = std::exchange(m_registered, {});
  for (const Registered& one : before) Register(one.key);
}

void X11HotKeys::Dispatch() {
  bool remapped = false;
  while (const XcbEvent event{xcb_poll_for_event(m_connection->get())}) {
    if (EventType(*event) == XCB_MAPPING_NOTIFY) remapped = true;
    if (EventType(*event) != XCB_KEY_PRESS) continue;
    const xcb_keycode_t code = As<xcb_key_press_event_t>(*event).detail;
    for (const Registered& one : m_registered) {
      if (one.code == code && m_handler) m_handler(one.key.virtualKeyCode);
    }
  }
  if (remapped) RegisterAnew();
}

}  // namespace quill::platform::x11
