#include "ui/palette_host.h"

#include "shell/page_title_tag.h"
#include "ui/kit/key_text.h"
#include "ui/kit/qt_text.h"
#include "ui/menu_builder.h"

namespace quill::ui {
namespace {

using shell::CommandRow;
using shell::Place;

bool IsInPalette(const CommandRow& row) {
  // An entry that opens what is open already helps nobody.
  return (row.place == Place::Menu || row.place == Place::Palette) &&
         row.action != "MenuItemCommandPaletteClick";
}

/// The favourites of a kind, each an entry of its own.
struct Favourites {
  std::string_view item;
  std::string_view group;
  std::vector<shell::FavouriteItem> shell::MenuState::*items;
};

constexpr Favourites kFavourites[] = {
    {"MenuItemFavoritePageItemClick", "menuGroupFavouritePages", &shell::MenuState::favouritePages},
    {"MenuItemFavoriteSectionItemClick", "menuGroupFavouriteSections", &shell::MenuState::favouriteSections}};

}  // namespace

PaletteHost::PaletteHost(const shell::StringTable& strings, WinPalette::Recency recency,
                         WinPalette::OnChosen onChosen)
    : m_strings(strings), m_recency(std::move(recency)), m_onChosen(std::move(onChosen)) {}

void PaletteHost::Open() {
  if (m_palette == nullptr) {
    m_palette = std::make_unique<WinPalette>(m_strings, Entries(), m_recency, m_onChosen);
  }
  m_palette->SetProblems(Problems());
  m_palette->Open();
}

void PaletteHost::AppendFavourites(std::vector<PaletteEntry>& entries, const CommandRow& row) const {
  for (const Favourites& one : kFavourites) {
    if (row.action != one.item) continue;
    const QString group = ToQt(m_strings.Text(one.group));
    for (const shell::FavouriteItem& item : m_state.*one.items) {
      entries.push_back({&row, item.argument, FavouriteTitleOf(m_strings, item), group, {}, {}});
    }
  }
}

std::vector<PaletteEntry> PaletteHost::Entries() const {
  std::vector<PaletteEntry> entries;
  for (const CommandRow& row : shell::CommandTable()) {
    if (row.place == Place::Dynamic) AppendFavourites(entries, row);
    if (!IsInPalette(row)) continue;
    PaletteEntry entry{
        &row, {}, ToQt(m_strings.Text(row.titleKey)), ToQt(m_strings.Text(shell::GroupTitleKey(row.group))),
        {},   {}};
    for (const HotKeyState& key : m_hotKeys) {
      if (key.row == &row) entry.shortcut = HotKeyText(key.keys);
    }
    if (row.number != shell::kPageTitleTagCommand) {
      entries.push_back(std::move(entry));
      continue;
    }
    for (std::size_t tag = 0; tag < shell::kPageTitleTags.size(); ++tag) {
      PaletteEntry one = entry;
      one.argument = static_cast<std::int64_t>(tag);
      one.title += ' ' + ToQt(tag == 0 ? m_strings.Text("menuNoTag") : shell::kPageTitleTags[tag]);
      entries.push_back(std::move(one));
    }
  }
  return entries;
}

PaletteProblems PaletteHost::Problems() const {
  PaletteProblems problems;
  for (const CommandRow& row : shell::CommandTable()) {
    const std::string_view reason = shell::WhyNotNow(row, m_state);
    if (!reason.empty()) problems[&row] = ToQt(m_strings.Text(reason));
  }
  return problems;
}

void PaletteHost::Update(const shell::MenuState& state) {
  const bool areOthers =
      m_state.favouritePages != state.favouritePages || m_state.favouriteSections != state.favouriteSections;
  m_state = state;
  if (areOthers) return Retranslate();
  if (m_palette != nullptr) m_palette->SetProblems(Problems());
}

void PaletteHost::Update(const std::vector<HotKeyState>& hotKeys) {
  m_hotKeys = hotKeys;
  Retranslate();
}

void PaletteHost::Retranslate() {
  if (m_palette == nullptr) return;
  m_palette->SetEntries(Entries());
  m_palette->SetProblems(Problems());
}

}  // namespace quill::ui
