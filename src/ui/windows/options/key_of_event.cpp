#include "ui/windows/options/key_of_event.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QSysInfo>
#include <algorithm>
#include <string_view>
#include <utility>

namespace quill::ui {
namespace {

using platform::KeyCombination;

constexpr int kFirstBeyondLatin = 0x100;
constexpr int kFirstFunctionalKey = 0x01000000;  // Qt's keys without a character

/// Digits and letters by their key codes on a US keyboard, which X and Wayland share.
constexpr std::pair<quint32, std::string_view> kRows[] = {
    {10, "1234567890"}, {24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

std::string ByPlace(quint32 scanCode) {
  for (const auto& [first, names] : kRows) {
    if (scanCode >= first && scanCode - first < names.size()) return std::string(1, names[scanCode - first]);
  }
  return {};
}

bool IsLetter(int key) {
  return key >= Qt::Key_A && key <= Qt::Key_Z;
}
bool IsDigit(int key) {
  return key >= Qt::Key_0 && key <= Qt::Key_9;
}

/// On macOS keys are registered by their virtual key codes.
std::string ByVirtualKeyCode(quint32 code) {
  constexpr std::string_view kNames = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  for (const char name : kNames) {
    KeyCombination keys;
    keys.key = name;
    if (platform::CarbonKeyCode(keys) == code) return keys.key;
  }
  return {};
}

bool SwapsControlAndMeta() {
  return QSysInfo::kernelType() == QLatin1String("darwin");
}

}  // namespace

std::string KeyNameOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key == Qt::Key_Space) return "Space";
  if (key >= Qt::Key_F1 && key <= Qt::Key_F20) return "F" + std::to_string(key - Qt::Key_F1 + 1);
  if (key >= kFirstFunctionalKey || (event.modifiers() & Qt::KeypadModifier) != 0) return {};
  if (QGuiApplication::platformName() == QLatin1String("cocoa")) {
    return ByVirtualKeyCode(event.nativeVirtualKey());
  }
  if (IsLetter(key) || IsDigit(key)) return std::string(1, static_cast<char>(key));
  const std::string place = ByPlace(event.nativeScanCode());
  const bool isDigitsPlace = !place.empty() && IsDigit(place.front());
  return isDigitsPlace || key >= kFirstBeyondLatin ? place : std::string();
}

bool IsModifierKey(const QKeyEvent& event) {
  constexpr int kModifierKeys[] = {Qt::Key_Shift,   Qt::Key_Control,  Qt::Key_Alt,     Qt::Key_Meta,
                                   Qt::Key_Super_L, Qt::Key_Super_R,  Qt::Key_Hyper_L, Qt::Key_Hyper_R,
                                   Qt::Key_AltGr,   Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock};
  return std::find(std::begin(kModifierKeys), std::end(kModifierKeys), event.key()) !=
         std::end(kModifierKeys);
}

KeyCombination CombinationOf(const QKeyEvent& event) {
  Qt::KeyboardModifiers held = event.modifiers();
  const bool swapped = SwapsControlAndMeta();
  KeyCombination keys;
  keys.control = held.testFlag(swapped ? Qt::MetaModifier : Qt::ControlModifier);
  keys.command = held.testFlag(swapped ? Qt::ControlModifier : Qt::MetaModifier);
  keys.option = held.testFlag(Qt::AltModifier);
  keys.shift = held.testFlag(Qt::ShiftModifier);
  keys.key = KeyNameOf(event);
  return keys;
}

QString SpokenKey(const QKeyEvent& event) {
  return QKeySequence(event.key()).toString(QKeySequence::NativeText);
}

}  // namespace quill::ui
