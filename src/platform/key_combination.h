#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quill::platform {

/// A key with modifiers, by its place on the keyboard. On Linux Option is Alt and Command is Super.
struct KeyCombination {
  bool control = false;
  bool option = false;
  bool shift = false;
  bool command = false;
  std::string key;  ///< "A" to "Z", "0" to "9", "F1" to "F20", "Space"

  bool operator==(const KeyCombination&) const = default;
};

/// Reads "Control+Option+Shift+D"; "Ctrl", "Alt", "Super" and "Meta" are understood, too, in any case.
/// Nothing for an unknown word, a missing or second key, or a key without Control, Option or Command (it
/// would be lost for typing); F keys may stand alone.
std::optional<KeyCombination> ParseKeyCombination(std::string_view text);

/// The stored text: modifiers in the order Control, Option, Shift, Command, then the key, joined by "+".
std::string KeyCombinationText(const KeyCombination& keys);

/// The Carbon virtual key code of the key (D is 2, C 8, T 17, L 37).
std::uint32_t CarbonKeyCode(const KeyCombination& keys);

/// The Carbon modifier mask (Control + Option + Shift is 0x1A00).
std::uint32_t CarbonModifiers(const KeyCombination& keys);

}  // namespace quill::platform
