#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/hot_keys.h"
#include "platform/x11/x11_key_map.h"

namespace quill::platform::x11 {

/// System-wide keys on an X display, on a connection of its own and without a thread: the owner watches
/// `Descriptor` in its event loop and calls `Dispatch` when it is readable.
class X11HotKeys final : public HotKeyRegistrar {
 public:
  static Result<std::unique_ptr<X11HotKeys>> Open(const char* display);
  ~X11HotKeys() override;

  void OnPressed(std::function<void(std::uint32_t identifier)> handler) override {
    m_handler = std::move(handler);
  }

  /// The letter's key in the layout in use, or its place on a US keyboard, with Control, Alt and Shift and
  /// every state of the lock keys. Either all of these are taken or none.
  std::string Register(const HotKey& key) override;

  /// The file descriptor to watch for input.
  int Descriptor() const { return xcb_get_file_descriptor(m_connection->get()); }
  /// Handles what has arrived and calls the handler for each key; never blocks. When the keyboard's layout
  /// has changed, the keys are registered anew.
  void Dispatch();

 private:
  struct Registered {
    HotKey key;
    xcb_keycode_t code;
  };

  explicit X11HotKeys(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}
  bool Grab(xcb_keycode_t code, const X11KeyMap& keys);
  void ReleaseAll();
  void RegisterAnew();

  std::unique_ptr<X11Connection> m_connection;
  std::function<void(std::uint32_t)> m_handler;
  std::vector<Registered> m_registered;
};

}  // namespace quill::platform::x11
