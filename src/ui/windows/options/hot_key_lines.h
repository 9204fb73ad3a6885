#pragma once
#include <QString>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ui/hot_key_center.h"

namespace quill::ui {

/// One action in the list of hot keys.
struct HotKeyLine {
  const shell::CommandRow* row;
  std::optional<platform::KeyCombination> keys;
  platform::HotKeyProblem problem = platform::HotKeyProblem::None;
  std::string detail = {};  ///< as in `HotKeyState`
};

/// The actions that have a key, those that have one by default, and `more`, in the table's order. What became
/// of a key is only known when `states` are about that very combination.
std::vector<HotKeyLine> HotKeyLines(std::string_view setting, const std::vector<HotKeyState>& states,
                                    const std::set<const shell::CommandRow*>& more);

}  // namespace quill::ui
