#include "platform/key_combination.h"

#include <utility>

namespace quill::platform {
namespace {

constexpr std::uint32_t kCarbonCommand = 0x0100, kCarbonShift = 0x0200, kCarbonOption = 0x0800,
                        kCarbonControl = 0x1000;

struct Key {
  std::string_view name;
  std::uint32_t carbonCode;
};

/// Keys by their place on a US keyboard, with Carbon's virtual key codes (HIToolbox Events.h, kVK_…).
constexpr Key kKeys[] = {
    {"A", 0x00},    {"B", 0x0B},   {"C", 0x08},   {"D", 0x02},   {"E", 0x0E},   {"F", 0x03},   {"G", 0x05},
    {"H", 0x04},    {"I", 0x22},   {"J", 0x26},   {"K", 0x28},   {"L", 0x25},   {"M", 0x2E},   {"N", 0x2D},
    {"O", 0x1F},    {"P", 0x23},   {"Q", 0x0C},   {"R", 0x0F},   {"S", 0x01},   {"T", 0x11},   {"U", 0x20},
    {"V", 0x09},    {"W", 0x0D},   {"X", 0x07},   {"Y", 0x10},   {"Z", 0x06},   {"0", 0x1D},   {"1", 0x12},
    {"2", 0x13},    {"3", 0x14},   {"4", 0x15},   {"5", 0x17},   {"6", 0x16},   {"7", 0x1A},   {"8", 0x1C},
    {"9", 0x19},    {"F1", 0x7A},  {"F2", 0x78},  {"F3", 0x63},  {"F4", 0x76},  {"F5", 0x60},  {"F6", 0x61},
    {"F7", 0x62},   {"F8", 0x64},  {"F9", 0x65},  {"F10", 0x6D}, {"F11", 0x67}, {"F12", 0x6F}, {"F13", 0x69},
    {"F14", 0x6B},  {"F15", 0x71}, {"F16", 0x6A}, {"F17", 0x40}, {"F18", 0x4F}, {"F19", 0x50}, {"F20", 0x5A},
    {"Space", 0x31}};

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameWord(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Upper(a[i]) != Upper(b[i])) return false;
  }
  return true;
}

const Key* FindKey(std::string_view name) {
  for (const Key& key : kKeys) {
    if (SameWord(key.name, name)) return &key;
  }
  return nullptr;
}

bool IsFunctionKey(std::string_view key) {
  return key.size() > 1 && key.front() == 'F';
}

using ModifierField = bool KeyCombination::*;

constexpr std::pair<std::string_view, ModifierField> kModifierWords[] = {
    {"Control", &KeyCombination::control}, {"Option", &KeyCombination::option},
    {"Shift", &KeyCombination::shift},     {"Command", &KeyCombination::command},
    {"Ctrl", &KeyCombination::control},    {"Alt", &KeyCombination::option},
    {"Super", &KeyCombination::command},   {"Meta", &KeyCombination::command}};

bool SetModifier(KeyCombination& keys, std::string_view word) {
  for (const auto& [name, field] : kModifierWords) {
    if (SameWord(name, word)) return keys.*field = true;
  }
  return false;
}

}  // namespace

std::optional<KeyCombination> ParseKeyCombination(std::string_view text) {
  KeyCombination keys;
  while (true) {
    const std::size_t plus = text.find('+');
    const std::string_view word = text.substr(0, plus);
    if (!SetModifier(keys, word)) {
      const Key* key = FindKey(word);
      if (key == nullptr || !keys.key.empty()) return std::nullopt;
      keys.key = key->name;
    }
    if (plus == std::string_view::npos) break;
    text.remove_prefix(plus + 1);
  }
  if (keys.key.empty()) return std::nullopt;
  const bool reachable = keys.control || keys.option || keys.command || IsFunctionKey(keys.key);
  return reachable ? std::optional(keys) : std::nullopt;
}

std::string KeyCombinationText(const KeyCombination& keys) {
  std::string text;
  for (std::size_t i = 0; i < 4; ++i) {
    if (keys.*kModifierWords[i].second) text.append(kModifierWords[i].first).append("+");
  }
  return text.append(keys.key);
}

std::uint32_t CarbonKeyCode(const KeyCombination& keys) {
  const Key* key = FindKey(keys.key);
  return key != nullptr ? key->carbonCode : 0xFFFF;
}

std::uint32_t CarbonModifiers(const KeyCombination& keys) {
  return (keys.control ? kCarbonControl : 0) | (keys.option ? kCarbonOption : 0) |
         (keys.shift ? kCarbonShift : 0) | (keys.command ? kCarbonCommand : 0);
}

}  // namespace quill::platform
