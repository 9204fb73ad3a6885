#include "platform/x11/x11_hot_keys.h"

#include <algorithm>

#include "platform/native_backend.h"

namespace quill::platform::x11 {
namespace {

constexpr std::uint16_t kEveryModifier = 0xff;  // the bits above are pointer buttons and the layout in use

/// The modifiers with every state of the lock keys.
std::vector<std::uint16_t> AllStates(std::uint16_t modifiers, const std::vector<std::uint16_t>& locks) {
  std::vector<std::uint16_t> states = {modifiers};
  for (const std::uint16_t lock : locks) {
    const std::size_t count = states.size();
    for (std::size_t i = 0; i < count; ++i) states.push_back(states[i] | lock);
  }
  return states;
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

int X11HotKeys::Descriptor() const {
  return m_connection->Broken() ? -1 : xcb_get_file_descriptor(m_connection->get());
}

bool X11HotKeys::Grab(const Registered& key) {
  xcb_connection_t* c = m_connection->get();
  const std::vector<std::uint16_t> states = AllStates(key.modifiers, m_locks);
  std::vector<xcb_void_cookie_t> cookies;
  cookies.reserve(states.size());
  for (const std::uint16_t state : states) {
    cookies.push_back(xcb_grab_key_checked(c, 0, m_connection->root(), state, key.code, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_ASYNC));
  }
  bool granted = true;
  for (const xcb_void_cookie_t cookie : cookies) {
    if (const XcbPointer<xcb_generic_error_t> error{xcb_request_check(c, cookie)}) granted = false;
  }
  if (!granted) {
    for (const std::uint16_t state : states) xcb_ungrab_key(c, key.code, m_connection->root(), state);
    xcb_flush(c);
  }
  return granted;
}

HotKeyResult X11HotKeys::Register(const HotKey& key, const X11KeyMap& map) {
  const std::optional<xcb_keycode_t> code = map.ForName(key.keys.key);
  const std::optional<std::uint16_t> modifiers = map.MaskFor(key.keys);
  if (!code || !modifiers) return {key.identifier, HotKeyProblem::NoSuchKey};
  const Registered wanted{*code, *modifiers, key.identifier};
  // The server would grant us our own key a second time, and one press would then do two things.
  const bool ours = std::any_of(m_registered.begin(), m_registered.end(), [&](const Registered& one) {
    return one.code == wanted.code && one.modifiers == wanted.modifiers;
  });
  if (ours || !Grab(wanted)) return {key.identifier, HotKeyProblem::Taken};
  m_registered.push_back(wanted);
  return {key.identifier};
}

bool X11HotKeys::AllStandAsBefore() const {
  const X11KeyMap map(*m_connection);
  if (m_connection->Broken() || map.LockMasks() != m_locks) return false;
  std::vector<Registered> wanted;
  wanted.reserve(m_keys.size());
  for (const HotKey& key : m_keys) {
    const std::optional<xcb_keycode_t> code = map.ForName(key.keys.key);
    const std::optional<std::uint16_t> modifiers = map.MaskFor(key.keys);
    if (!code || !modifiers) return false;
    wanted.push_back({*code, *modifiers, key.identifier});
  }
  return wanted == m_registered;
}

std::vector<HotKeyResult> X11HotKeys::RegisterAll() {
  ReleaseAll();
  const X11KeyMap map(*m_connection);
  m_locks = map.LockMasks();
  std::vector<HotKeyResult> results;
  for (const HotKey& key : m_keys) results.push_back(Register(key, map));
  if (m_connection->Broken()) {
    for (HotKeyResult& result : results)
      result = {result.identifier, HotKeyProblem::SystemError, "the connection to the display is lost"};
  }
  return results;
}

void X11HotKeys::Publish(std::vector<HotKeyResult> results) {
  if (results == m_results) return;
  m_results = results;
  if (const Report report = m_report) report(std::move(results));
}

void X11HotKeys::Bind(std::vector<HotKey> keys, Report report) {
  m_keys = std::move(keys);
  m_report = std::move(report);
  m_results = RegisterAll();
  if (const Report now = m_report) now(m_results);
}

void X11HotKeys::ReleaseAll() {
  for (const Registered& one : m_registered) {
    xcb_ungrab_key(m_connection->get(), one.code, m_connection->root(), XCB_MOD_MASK_ANY);
  }
  xcb_flush(m_connection->get());
  m_registered.clear();
}

std::optional<std::uint32_t> X11HotKeys::PressedKey(const xcb_key_press_event_t& press) const {
  if (m_held.IsRepeat(press.detail, press.time)) return std::nullopt;
  std::uint16_t modifiers = press.state & kEveryModifier;
  for (const std::uint16_t lock : m_locks) modifiers &= static_cast<std::uint16_t>(~lock);
  for (const Registered& one : m_registered) {
    if (one.code == press.detail && one.modifiers == modifiers) return one.identifier;
  }
  return std::nullopt;
}

bool X11HotKeys::TakeEvents() {
  bool remapped = false;
  while (const XcbEvent event{xcb_poll_for_event(m_connection->get())}) {
    // The whole type is looked at: an event that another program has sent is nobody's key.
    if (event->response_type == XCB_MAPPING_NOTIFY) {
      remapped |= As<xcb_mapping_notify_event_t>(*event).request != XCB_MAPPING_POINTER;
    } else if (event->response_type == XCB_KEY_RELEASE) {
      const auto& release = As<xcb_key_release_event_t>(*event);
      m_held.Released(release.detail, release.time);
    } else if (event->response_type == XCB_KEY_PRESS) {
      const std::optional<std::uint32_t> pressed = PressedKey(As<xcb_key_press_event_t>(*event));
      const auto handler = m_handler;  // it may set another
      if (pressed && handler) handler(*pressed);
    }
  }
  return remapped;
}

void X11HotKeys::Dispatch() {
  // Again after a registration: while that waited for the server's answers, more may have arrived.
  while (TakeEvents()) {
    if (!AllStandAsBefore()) Publish(RegisterAll());
  }
  if (m_connection->Broken()) Publish(RegisterAll());
}

}  // namespace quill::platform::x11

namespace quill::platform {

Result<std::unique_ptr<HotKeyRegistrar>> OpenNativeHotKeys() {
  Result<std::unique_ptr<x11::X11HotKeys>> keys = x11::X11HotKeys::Open(nullptr);
  if (!keys.ok()) return Failure{keys.error()};
  return std::unique_ptr<HotKeyRegistrar>(std::move(*keys));
}

std::unique_ptr<UrlEvents> OpenUrlEvents() {
  return nullptr;
}

}  // namespace quill::platform
