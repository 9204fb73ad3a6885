#include "platform/x11/x11_key_map.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

namespace quill::platform::x11 {
namespace {

constexpr int kModifierRows = 8;
constexpr int kColumnsOfGroup = 2;

// Keysyms of the X protocol (appendix A of its text); a printable Latin-1 character is its own keysym.
constexpr xcb_keysym_t kBackSpace = 0xff08, kTab = 0xff09, kReturn = 0xff0d, kEscape = 0xff1b, kHome = 0xff50,
                       kLeft = 0xff51, kUp = 0xff52, kRight = 0xff53, kDown = 0xff54, kPageUp = 0xff55,
                       kPageDown = 0xff56, kEnd = 0xff57, kNumLock = 0xff7f, kScrollLock = 0xff14,
                       kShift = 0xffe1, kControl = 0xffe3, kAlt = 0xffe9, kDelete = 0xffff,
                       kAltRight = 0xffea, kSuper = 0xffeb, kSuperRight = 0xffec, kF1 = 0xffbe;

struct CarbonKey {
  int code;
  xcb_keysym_t symbol;
};

constexpr CarbonKey kCarbonKeys[] = {
    {script::kKeyCodeDelete, kBackSpace},
    {script::kKeyCodeDownArrow, kDown},
    {36, kReturn},
    {48, kTab},
    {49, ' '},
    {53, kEscape},
    {115, kHome},
    {116, kPageUp},
    {117, kDelete},
    {119, kEnd},
    {121, kPageDown},
    {123, kLeft},
    {124, kRight},
    {126, kUp},
};

/// Digits and letters by their key codes on a US keyboard: four rows of neighbours.
std::optional<xcb_keycode_t> UsPlace(char character) {
  constexpr struct {
    xcb_keycode_t first;
    std::string_view letters;
  } kRows[] = {{10, "1234567890"}, {24, "qwertyuiop"}, {38, "asdfghjkl"}, {52, "zxcvbnm"}};
  for (const auto& row : kRows) {
    const std::size_t at = row.letters.find(character);
    if (at != std::string_view::npos) return static_cast<xcb_keycode_t>(row.first + at);
  }
  return std::nullopt;
}

bool IsUpper(char c) {
  return c >= 'A' && c <= 'Z';
}
char Lower(char c) {
  return IsUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

X11KeyMap::X11KeyMap(const X11Connection& connection) : m_connection(connection) {
  xcb_connection_t* c = connection.get();
  const xcb_setup_t* setup = xcb_get_setup(c);
  m_first = setup->min_keycode;
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const auto mapping = xcb_get_keyboard_mapping(c, m_first, count);
  const auto modifiers = xcb_get_modifier_mapping(c);
  const auto pointer = xcb_query_pointer(c, connection.root());
  if (const auto reply = Reply(c, mapping, xcb_get_keyboard_mapping_reply)) {
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    m_columns = reply->keysyms_per_keycode;
    m_symbols.assign(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(reply.get()));
  }
  if (const auto reply = Reply(c, modifiers, xcb_get_modifier_mapping_reply)) {
    const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
    m_keysPerModifier = reply->keycodes_per_modifier;
    m_modifierKeys.assign(keys, keys + xcb_get_modifier_mapping_keycodes_length(reply.get()));
  }
  // Two bits of the state tell which of up to four layouts is in use.
  if (const auto reply = Reply(c, pointer, xcb_query_pointer_reply)) m_group = reply->mask >> 13 & 3;
}

xcb_keysym_t X11KeyMap::SymbolAt(xcb_keycode_t key, int column) const {
  const int index = (key - m_first) * m_columns + column;
  return column < m_columns && index >= 0 && index < static_cast<int>(m_symbols.size())
             ? m_symbols[static_cast<std::size_t>(index)]
             : XCB_NO_SYMBOL;
}

std::optional<X11KeyMap::Place> X11KeyMap::Find(xcb_keysym_t symbol, int firstColumn) const {
  for (int shifted = 0; shifted < kColumnsOfGroup; ++shifted) {
    for (int key = m_first; key <= 255; ++key) {
      const auto code = static_cast<xcb_keycode_t>(key);
      if (SymbolAt(code, firstColumn + shifted) == symbol) return Place{code, shifted == 1};
    }
  }
  return std::nullopt;
}

std::optional<X11KeyMap::Place> X11KeyMap::FindInUse(xcb_keysym_t symbol) const {
  if (m_group > 1) return std::nullopt;  // the protocol's table shows the first two layouts only
  std::optional<Place> place = Find(symbol, m_group * kColumnsOfGroup);
  // Keys without a character, such as Down, stand in the first layout for all.
  if (!place && (symbol > 0xff || symbol == ' ')) place = Find(symbol, 0);
  return place;
}

std::optional<KeyChord> X11KeyMap::Chord(Place place, const script::Modifiers& modifiers) const {
  KeyChord chord{place.key, {}};
  const bool alt = modifiers.option || (modifiers.command && modifiers.control);
  const struct {
    bool wanted;
    xcb_keysym_t symbol;
  } held[] = {{modifiers.command || modifiers.control, kControl},
              {alt, kAlt},
              {modifiers.shift || place.shifted, kShift}};
  for (const auto& modifier : held) {
    if (!modifier.wanted) continue;
    const std::optional<Place> key = Find(modifier.symbol, 0);
    if (!key) return std::nullopt;
    chord.held.push_back(key->key);
  }
  return chord;
}

std::optional<KeyChord> X11KeyMap::ForCharacter(char character, const script::Modifiers& modifiers) const {
  if (character < ' ' || character > '~') return std::nullopt;
  std::optional<Place> place = FindInUse(static_cast<xcb_keysym_t>(character));
  if (!place) {
    const std::optional<xcb_keycode_t> key = UsPlace(Lower(character));
    if (key) place = Place{*key, IsUpper(character)};
  }
  return place ? Chord(*place, modifiers) : std::nullopt;
}

std::optional<KeyChord> X11KeyMap::ForCarbonCode(int code, const script::Modifiers& modifiers) const {
  for (const CarbonKey& key : kCarbonKeys) {
    if (key.code != code) continue;
    const std::optional<Place> place = Find(key.symbol, 0);
    return place ? Chord(*place, modifiers) : std::nullopt;
  }
  return std::nullopt;
}

std::optional<xcb_keycode_t> X11KeyMap::ForName(std::string_view name) const {
  if (name.size() == 1) {
    const std::optional<KeyChord> chord = ForCharacter(Lower(name.front()), {});
    return chord ? std::optional(chord->key) : std::nullopt;
  }
  xcb_keysym_t symbol = ' ';
  if (name.size() > 1 && name.front() == 'F') {
    unsigned number = 0;
    std::from_chars(name.data() + 1, name.data() + name.size(), number);
    symbol = kF1 + number - 1;
  }
  const std::optional<Place> place = Find(symbol, 0);
  return place ? std::optional(place->key) : std::nullopt;
}

std::optional<std::uint16_t> X11KeyMap::MaskFor(const KeyCombination& keys) const {
  const auto either = [this](xcb_keysym_t left, xcb_keysym_t right) {
    const std::uint16_t mask = MaskOf(left);
    return mask != 0 ? mask : MaskOf(right);
  };
  const std::pair<bool, std::uint16_t> wanted[] = {{keys.control, XCB_MOD_MASK_CONTROL},
                                                   {keys.shift, XCB_MOD_MASK_SHIFT},
                                                   {keys.option, either(kAlt, kAltRight)},
                                                   {keys.command, either(kSuper, kSuperRight)}};
  std::uint16_t mask = 0;
  for (const auto& [held, bit] : wanted) {
    if (held && bit == 0) return std::nullopt;
    if (held) mask |= bit;
  }
  return mask;
}

std::uint16_t X11KeyMap::MaskOf(xcb_keysym_t symbol) const {
  // The second column, too: a key that exists for its modifier alone may have its symbol there only.
  for (int column = 0; column < kColumnsOfGroup; ++column) {
    for (std::size_t i = 0; i < m_modifierKeys.size(); ++i) {
      if (m_modifierKeys[i] != 0 && SymbolAt(m_modifierKeys[i], column) == symbol) {
        return static_cast<std::uint16_t>(1u << (i / m_keysPerModifier));
      }
    }
  }
  return 0;
}

std::vector<std::uint16_t> X11KeyMap::LockMasks() const {
  std::vector<std::uint16_t> masks = {XCB_MOD_MASK_LOCK};
  for (const xcb_keysym_t lock : {kNumLock, kScrollLock}) {
    const std::uint16_t mask = MaskOf(lock);
    if (mask != 0 && std::find(masks.begin(), masks.end(), mask) == masks.end()) masks.push_back(mask);
  }
  return masks;
}

std::vector<std::string> X11KeyMap::HeldModifiers() const {
  constexpr std::string_view kNames[kModifierRows] = {"Shift", "", "Control", "Alt",
                                                      "",      "", "Super",   "AltGr"};
  xcb_connection_t* c = m_connection.get();
  const auto keysCookie = xcb_query_keymap(c);
  const auto pointerCookie = xcb_query_pointer(c, m_connection.root());
  const auto keys = Reply(c, keysCookie, xcb_query_keymap_reply);
  const auto pointer = Reply(c, pointerCookie, xcb_query_pointer_reply);
  std::uint16_t locks = 0;
  for (const std::uint16_t mask : LockMasks()) locks |= mask;
  std::uint16_t down = pointer ? pointer->mask & 0xff : 0;
  for (std::size_t i = 0; keys && i < m_modifierKeys.size(); ++i) {
    const xcb_keycode_t key = m_modifierKeys[i];
    if (key != 0 && keys->keys[key / 8] >> (key % 8) & 1)
      down |= static_cast<std::uint16_t>(1u << (i / m_keysPerModifier));
  }
  down &= static_cast<std::uint16_t>(~locks);
  std::vector<std::string> names;
  for (int row = 0; row < kModifierRows; ++row) {
    if (down >> row & 1)
      names.emplace_back(kNames[row].empty() ? "Mod" + std::to_string(row - 2) : kNames[row]);
  }
  return names;
}

}  // namespace quill::platform::x11
