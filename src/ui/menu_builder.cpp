#include "ui/menu_builder.h"

#include <QAction>

#include "shell/page_title_tag.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using shell::CommandGroup;
using shell::CommandRow;
using shell::Place;

// "Add", "Manage" and the line below them.
constexpr int kFixedFavouriteItems = 3;
constexpr int kWidestFavourite = 48;  // average characters; the whole title is in the tool tip

/// The rows of one submenu of favourites.
struct Favourites {
  std::string_view title;
  std::string_view add;
  std::string_view manage;
  std::string_view item;
  std::vector<shell::FavouriteItem> shell::MenuState::*items;
};

constexpr Favourites kFavourites[] = {
    {"menuGroupFavouritePages", "MenuItemFavoriteCurrentPageClick", "MenuItemManagerFavoritePages",
     "MenuItemFavoritePageItemClick", &shell::MenuState::favouritePages},
    {"menuGroupFavouriteSections", "MenuItemFavoriteCurrentSectionClick", "MenuItemManagerFavoriteSections",
     "MenuItemFavoriteSectionItemClick", &shell::MenuState::favouriteSections}};

QString Escaped(QString title) {
  return title.replace('&', "&&");
}

/// Plain text for a tool tip, which would take some texts for markup.
QString PlainTip(const QString& text) {
  return text.isEmpty() ? text : QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped());
}

}  // namespace

QString FavouriteTitleOf(const shell::StringTable& strings, const shell::FavouriteItem& item) {
  const QString title = ToQt(item.title).simplified();
  return title.isEmpty() ? ToQt(strings.Text("strFavouriteUntitled")) : title;
}

ActionMenu::ActionMenu(const shell::StringTable& strings, OnAction onAction)
    : m_strings(strings), m_onAction(std::move(onAction)), m_menu(std::make_unique<QMenu>()) {
  Build();
}

void ActionMenu::Retranslate() {
  m_entries.clear();
  m_favourites.clear();
  m_listed.clear();
  m_groups.clear();
  m_menu->clear();
  qDeleteAll(m_menu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
  Build();
  ShowHotKeys(m_hotKeys);
  Update(m_state);
}

void ActionMenu::Build() {
  bool atTop = false;
  for (const CommandRow& row : shell::CommandTable()) {
    if (row.place != Place::Menu) continue;
    if (row.group == CommandGroup::Top && !std::exchange(atTop, true)) m_menu->addSeparator();
    QMenu& menu = row.group == CommandGroup::Top ? *m_menu : GroupMenu(row.group);
    if (row.group == CommandGroup::Favourites) {
      AddFavourites(menu, row);
    } else {
      AddRow(menu, row);
    }
  }
  AssignMnemonics(*m_menu);
}

QString ActionMenu::Title(std::string_view key) const {
  return Escaped(ToQt(m_strings.Text(key)));
}

QMenu& ActionMenu::GroupMenu(CommandGroup group) {
  QMenu*& menu = m_groups[group];
  if (menu == nullptr) {
    menu = m_menu->addMenu(Title(shell::GroupTitleKey(group)));
    menu->setToolTipsVisible(true);
  }
  return *menu;
}

void ActionMenu::AddRow(QMenu& menu, const CommandRow& row) {
  if (row.number == shell::kPageTitleTagCommand) return AddTags(menu, row);
  QAction* action = AddEntry(menu, Title(row.titleKey), row, std::nullopt);
  action->setObjectName(ToQt(row.action));
  action->setCheckable(row.action == "MenuItemStartWithMondayClick");
}

void ActionMenu::AddTags(QMenu& menu, const CommandRow& row) {
  QMenu* tags = menu.addMenu(Title(row.titleKey));
  tags->setToolTipsVisible(true);
  AddEntry(*tags, Title("menuNoTag"), row, 0);
  for (std::size_t i = 1; i < shell::kPageTitleTags.size(); ++i) {
    AddEntry(*tags, ToQt(shell::kPageTitleTags[i]), row, static_cast<std::int64_t>(i));
  }
}

void ActionMenu::AddFavourites(QMenu& menu, const CommandRow& row) {
  for (const Favourites& one : kFavourites) {
    const CommandRow* item = shell::FindCommand(one.item);
    if (row.action == one.add) {
      m_favourites[item] = menu.addMenu(Title(one.title));
      m_favourites[item]->setToolTipsVisible(true);
      AddRow(*m_favourites[item], row);
    } else if (row.action == one.manage) {
      AddRow(*m_favourites[item], row);
      m_favourites[item]->addSeparator();
    }
  }
}

QAction* ActionMenu::AddEntry(QMenu& menu, const QString& title, const CommandRow& row,
                              std::optional<std::int64_t> argument) {
  QAction* action = menu.addAction(title);
  QObject::connect(action, &QAction::triggered, action,
                   [this, &row, argument] { m_onAction(row, argument); });
  m_entries.emplace(&row, action);
  return action;
}

void ActionMenu::FillFavourites(const CommandRow& row, const std::vector<shell::FavouriteItem>& items) {
  // A submenu that is open keeps its place while nothing changes.
  const auto [listed, isNew] = m_listed.try_emplace(&row);
  if (!isNew && listed->second == items) return;
  listed->second = items;
  QMenu& menu = *m_favourites.at(&row);
  m_entries.erase(&row);
  const QList<QAction*> old = menu.actions().mid(kFixedFavouriteItems);
  for (QAction* action : old) {
    menu.removeAction(action);
    action->deleteLater();
  }
  const QFontMetrics metrics(menu.font());
  for (const shell::FavouriteItem& item : items) {
    const QString title = FavouriteTitleOf(m_strings, item);
    const QString shown =
        metrics.elidedText(title, Qt::ElideRight, metrics.averageCharWidth() * kWidestFavourite);
    AddEntry(menu, Escaped(shown), row, item.argument)->setData(title);
  }
}

void ActionMenu::Update(const shell::MenuState& state) {
  m_state = state;
  for (const Favourites& one : kFavourites) FillFavourites(*shell::FindCommand(one.item), state.*one.items);
  for (const auto& [row, action] : m_entries) {
    const std::string_view reason = shell::WhyNotNow(*row, state);
    action->setEnabled(reason.empty());
    action->setToolTip(reason.empty() ? PlainTip(action->data().toString()) : ToQt(m_strings.Text(reason)));
    if (action->isCheckable()) action->setChecked(state.startWithMonday);
  }
}

void ActionMenu::ShowHotKeys(std::map<const CommandRow*, QKeySequence> keys) {
  m_hotKeys = std::move(keys);
  for (const auto& [row, action] : m_entries) {
    const auto found = m_hotKeys.find(row);
    action->setShortcut(found == m_hotKeys.end() ? QKeySequence() : found->second);
    action->setShortcutVisibleInContextMenu(true);
  }
}

}  // namespace quill::ui
