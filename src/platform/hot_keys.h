#pragma once
#include <cstdint>
#include <functional>
#include <string>

namespace quill::platform {

/// A system-wide key with Control + Option + Shift (Carbon modifier mask 0x1A00).
struct HotKey {
  char letter;                   ///< 'A' to 'Z', by its place on the keyboard
  std::uint32_t virtualKeyCode;  ///< Carbon virtual key code; also the hot key's identifier
};

/// Registers system-wide keys. Called from the GUI thread.
class HotKeyRegistrar {
 public:
  virtual ~HotKeyRegistrar() = default;

  /// Sets who is told, by identifier, when a registered key is pressed (GUI thread). Every key event
  /// that arrives is reported to the system as handled, known identifier or not.
  virtual void OnPressed(std::function<void(std::uint32_t identifier)> handler) = 0;

  /// Registers one key. An empty text on success, otherwise why not (another program has taken it).
  virtual std::string Register(const HotKey& key) = 0;
};

/// Receives "qvar://" links from the system. Called from the GUI thread.
class UrlEvents {
 public:
  virtual ~UrlEvents() = default;

  /// Sets who gets each link, as the raw text that the system delivered, never through a URL class.
  virtual void OnUrl(std::function<void(std::string url)> handler) = 0;
};

}  // namespace quill::platform
