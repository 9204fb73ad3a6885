#pragma once
#include <QKeySequence>
#include <QString>

#include "platform/hot_keys.h"
#include "shell/string_table.h"

namespace quill::ui {

/// A key of a PC as it is labelled where the user's language is spoken: "Strg" for "Ctrl". A name that Qt
/// does not know stays.
QString KeyLabel(const char* name);

/// A combination as the user reads it: "Ctrl+Alt+Shift+D", on macOS the symbols of its menus.
QString HotKeyText(const platform::KeyCombination& keys);

/// The combination for an entry of a menu.
QKeySequence KeySequence(const platform::KeyCombination& keys);

/// Why a combination cannot be used, as a sentence; empty when it can.
QString HotKeyProblemText(const shell::StringTable& strings, const platform::KeyCombination& keys,
                          platform::HotKeyProblem problem, const std::string& detail);

}  // namespace quill::ui
