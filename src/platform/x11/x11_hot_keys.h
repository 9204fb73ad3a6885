#pragma once
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "platform/hot_keys.h"
#include "platform/x11/x11_key_map.h"

namespace quill::platform::x11 {

/// Tells a key that is pressed from one that is held. The server repeats a held key as a release and a press
/// of one and the same time; nobody's finger does that.
class HeldKeys {
 public:
  void Released(xcb_keycode_t key, xcb_timestamp_t time) { m_released[key] = time; }
  bool IsRepeat(xcb_keycode_t key, xcb_timestamp_t time) const { return m_released[key] == time; }

 private:
  std::array<std::optional<xcb_timestamp_t>, 256> m_released;
};

/// System-wide keys on an X display, on a connection of its own and without a thread: the owner watches
/// `Descriptor` in its event loop and calls `Dispatch` when it is readable.
class X11HotKeys final : public HotKeyRegistrar {
 public:
  static Result<std::unique_ptr<X11HotKeys>> Open(const char* display);
  ~X11HotKeys() override;

  void OnPressed(std::function<void(std::uint32_t identifier)> handler) override {
    m_handler = std::move(handler);
  }

  /// A key's place in the layout in use, or its place on a US keyboard, with its modifiers and every state of
  /// the lock keys. Either all of these are taken or none. `report` is called before the return.
  void Bind(std::vector<HotKey> keys, Report report) override;

  int Descriptor() const override;
  /// Handles what has arrived and calls the handler for each key; waits for nothing that is to come. When the
  /// keyboard's layout has changed, the keys are registered anew and reported if anything is different.
  void Dispatch() override;

 private:
  /// A key that is ours: what the server reports when it is pressed, without the lock keys.
  struct Registered {
    xcb_keycode_t code;
    std::uint16_t modifiers;
    std::uint32_t identifier;
    bool operator==(const Registered&) const = default;
  };

  explicit X11HotKeys(std::unique_ptr<X11Connection> connection) : m_connection(std::move(connection)) {}
  std::vector<HotKeyResult> RegisterAll();
  HotKeyResult Register(const HotKey& key, const X11KeyMap& map);
  /// True when the keys are registered just as this keyboard wants them. A key that is released and taken
  /// anew is nobody's for a moment, and servers announce a change whenever the user turns to another
  /// keyboard.
  bool AllStandAsBefore() const;
  bool Grab(const Registered& key);
  void ReleaseAll();
  /// Handles the events that are there; true when the keyboard has changed.
  bool TakeEvents();
  /// Reports results that are not as they were.
  void Publish(std::vector<HotKeyResult> results);
  std::optional<std::uint32_t> PressedKey(const xcb_key_press_event_t& press) const;

  std::unique_ptr<X11Connection> m_connection;
  std::function<void(std::uint32_t)> m_handler;
  Report m_report;
  std::vector<HotKey> m_keys;
  std::vector<HotKeyResult> m_results;  ///< as reported last
  std::vector<Registered> m_registered;
  std::vector<std::uint16_t> m_locks;
  HeldKeys m_held;
};

}  // namespace quill::platform::x11
