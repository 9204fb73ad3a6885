#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/menu_state.h"
#include "shell/string_table.h"
#include "ui/hot_key_center.h"
#include "ui/palette/win_palette.h"

namespace quill::ui {

/// The palette's place in the program: makes it at the first opening, from the command table and the user's
/// favourites, and keeps it. GUI thread.
class PaletteHost {
 public:
  /// `strings` outlives this object. `recency` and `onChosen` as in `WinPalette`.
  PaletteHost(const shell::StringTable& strings, WinPalette::Recency recency, WinPalette::OnChosen onChosen);

  void Open();

  /// What is missing on the desktop, which favourites there are, and which keys actions have, for the next
  /// opening and an open palette.
  void Update(const shell::MenuState& state);
  void Update(const std::vector<HotKeyState>& hotKeys);

  /// The language has changed.
  void Retranslate();

 private:
  std::vector<PaletteEntry> Entries() const;
  void AppendFavourites(std::vector<PaletteEntry>& entries, const shell::CommandRow& row) const;
  PaletteProblems Problems() const;

  const shell::StringTable& m_strings;
  WinPalette::Recency m_recency;
  WinPalette::OnChosen m_onChosen;
  shell::MenuState m_state;
  std::vector<HotKeyState> m_hotKeys;
  std::unique_ptr<WinPalette> m_palette;
};

}  // namespace quill::ui
