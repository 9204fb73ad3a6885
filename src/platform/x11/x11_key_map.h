#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/key_combination.h"
#include "platform/script/script_step.h"
#include "platform/x11/x11_connection.h"

namespace quill::platform::x11 {

/// A key to press and the modifier keys to hold meanwhile, as key codes of this keyboard.
struct KeyChord {
  xcb_keycode_t key = 0;
  std::vector<xcb_keycode_t> held;
};

/// The keyboard's layout and its modifiers, read once.
///
/// `command` is Control and `option` is Alt. `control` beside `command` is Alt too: applications on X know
/// no second Control, and what OneNote has on Control+Command its web form has on Control+Alt.
class X11KeyMap {
 public:
  explicit X11KeyMap(const X11Connection& connection);

  /// The chord that types a printable ASCII character with modifiers, looked up in the layout in use. A
  /// letter that the layout lacks is taken from its place on a US keyboard, where programs look for their
  /// shortcuts then. Nothing when there is no such key.
  std::optional<KeyChord> ForCharacter(char character, const script::Modifiers& modifiers) const;

  /// The chord for a Carbon virtual key code; nothing for one without a counterpart.
  std::optional<KeyChord> ForCarbonCode(int code, const script::Modifiers& modifiers) const;

  /// The names of the modifiers that are down now, on the keyboard or as sticky keys; Caps Lock, Num Lock
  /// and Scroll Lock are none.
  std::vector<std::string> HeldModifiers() const;

  /// The key of a name as `KeyCombination` has it ("D", "5", "F5", "Space"), whatever must be held to type
  /// it: where the layout in use has it, else its place on a US keyboard. Nothing when there is none.
  std::optional<xcb_keycode_t> ForName(std::string_view name) const;

  /// The modifier mask of a combination, with Alt and Super wherever this keyboard has them; nothing when it
  /// lacks one.
  std::optional<std::uint16_t> MaskFor(const KeyCombination& keys) const;

  /// Modifier masks of the lock keys (Caps Lock, Num Lock, Scroll Lock), each one a single bit.
  std::vector<std::uint16_t> LockMasks() const;

 private:
  struct Place {
    xcb_keycode_t key;
    bool shifted;
  };
  std::optional<Place> Find(xcb_keysym_t symbol, int firstColumn) const;
  std::optional<Place> FindInUse(xcb_keysym_t symbol) const;
  std::optional<KeyChord> Chord(Place place, const script::Modifiers& modifiers) const;
  xcb_keysym_t SymbolAt(xcb_keycode_t key, int column) const;
  std::uint16_t MaskOf(xcb_keysym_t symbol) const;
  bool IsLock(xcb_keycode_t key) const;

  const X11Connection& m_connection;
  xcb_keycode_t m_first = 0;
  int m_columns = 0;
  std::vector<xcb_keysym_t> m_symbols;
  std::vector<xcb_keycode_t> m_modifierKeys;  ///< eight rows: Shift, Lock, Control, Mod1 … Mod5
  std::size_t m_keysPerModifier = 0;
  int m_group = 0;
};

}  // namespace quill::platform::x11
