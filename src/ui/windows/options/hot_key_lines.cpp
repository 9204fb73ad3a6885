#include "ui/windows/options/hot_key_lines.h"

#include <algorithm>

namespace quill::ui {
namespace {

std::optional<platform::KeyCombination> KeysOf(const std::vector<shell::HotKeyAssignment>& assigned,
                                               const shell::CommandRow& row) {
  for (const shell::HotKeyAssignment& one : assigned) {
    if (one.row == &row) return one.keys;
  }
  return std::nullopt;
}

void TakeState(HotKeyLine& line, const std::vector<HotKeyState>& states) {
  for (const HotKeyState& state : states) {
    if (state.row != line.row || line.keys != state.keys) continue;
    line.problem = state.problem;
    line.detail = state.detail;
  }
}

}  // namespace

std::vector<HotKeyLine> HotKeyLines(std::string_view setting, const std::vector<HotKeyState>& states,
                                    const std::set<const shell::CommandRow*>& more) {
  const std::vector<shell::HotKeyAssignment> assigned = shell::AssignedHotKeys(setting);
  std::vector<HotKeyLine> lines;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    HotKeyLine line{&row, KeysOf(assigned, row)};
    if (!line.keys && row.hotKey == 0 && !more.contains(&row)) continue;
    TakeState(line, states);
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace quill::ui
