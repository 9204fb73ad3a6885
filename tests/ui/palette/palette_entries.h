#pragma once
#include <QKeySequence>
#include <vector>

#include "shell/page_title_tag.h"
#include "ui/kit/qt_text.h"
#include "ui/palette/palette_model.h"

namespace quill::ui {

/// The palette as its users have it: what the menu offers, and every page title tag.
inline std::vector<PaletteEntry> EntriesOfTable(const shell::StringTable& strings) {
  constexpr const char* kGroups[] = {"Page",  "Text",   "Title",     "Calendar",   "Image",
                                     "Links", "Table",  "Templates", "Favourites", "Online",
                                     "Files", "Insert", "Program"};
  std::vector<PaletteEntry> entries;
  for (const shell::CommandRow& row : shell::CommandTable()) {
    if (row.place != shell::Place::Menu && row.place != shell::Place::Palette) continue;
    PaletteEntry entry{&row, std::nullopt, ToQt(strings.Text(row.titleKey)), {}, {}, {}};
    const auto group = static_cast<std::size_t>(row.group);
    if (group < std::size(kGroups))
      entry.group = ToQt(strings.Text("menuGroup" + std::string(kGroups[group])));
    if (row.hotKey != 0) {
      entry.shortcut = QKeySequence(QStringLiteral("Ctrl+Alt+Shift+%1").arg(QLatin1Char(row.hotKey)))
                           .toString(QKeySequence::NativeText);
    }
    entries.push_back(entry);
    if (row.number != 25) continue;
    for (std::size_t tag = 1; tag < shell::kPageTitleTags.size(); ++tag) {
      PaletteEntry tagged = entry;
      tagged.argument = static_cast<std::int64_t>(tag);
      tagged.title += QStringLiteral(" ") + ToQt(shell::kPageTitleTags[tag]);
      entries.push_back(tagged);
    }
  }
  return entries;
}

}  // namespace quill::ui
