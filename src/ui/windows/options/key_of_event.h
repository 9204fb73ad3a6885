#pragma once
#include <QKeyEvent>
#include <QString>
#include <string>

#include "platform/key_combination.h"

namespace quill::ui {

/// The key of an event by the name that `KeyCombination` has for it, empty when it has none. A letter or
/// digit is what the layout in use types; where that has other letters, or another sign in a digit's place,
/// the key counts by its place on a US keyboard, as it does when the keys are registered.
std::string KeyNameOf(const QKeyEvent& event);

/// Whether the key is a modifier by itself.
bool IsModifierKey(const QKeyEvent& event);

/// The combination that is pressed, with what it holds down of it so far when the key has no name. Not
/// necessarily one that can be a system-wide key.
platform::KeyCombination CombinationOf(const QKeyEvent& event);

/// What the key is called, for a message about it: "Return", "Ä".
QString SpokenKey(const QKeyEvent& event);

}  // namespace quill::ui
