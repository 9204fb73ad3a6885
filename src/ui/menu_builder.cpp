#include "ui/menu_builder.h"

#include <QAction>
#include <QKeySequence>

#include "shell/page_title_tag.h"

namespace quill::ui {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// String-table keys of the groups' titles, in the order of `CommandGroup`.
constexpr std::string_view kGroupTitles[] = {
    "menuGroupPage",  "menuGroupText",   "menuGroupTitle",     "menuGroupCalendar",   "menuGroupImage",
    "menuGroupLinks", "menuGroupTable",  "menuGroupTemplates", "menuGroupFavourites", "menuGroupOnline",
    "menuGroupFiles", "menuGroupInsert", "menuGroupProgram"};

class Builder {
 public:
  Builder(const shell::StringTable& strings, OnAction onAction, QMenu& root)
      : m_strings(strings), m_onAction(std::move(onAction)), m_root(root) {}

  void Add(const shell::CommandRow& row) {
    QMenu* menu = GroupMenu(row.group);
    if (row.number == 25) return AddTags(*menu, row);
    QAction* action = AddEntry(*menu, Title(row.titleKey), row, std::nullopt);
    action->setObjectName(ToQt(row.action));
    if (row.hotKey == 0) return;
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Alt+Shift+%1").arg(QLatin1Char(row.hotKey))));
    action->setShortcutVisibleInContextMenu(true);
  }

 private:
  QString Title(std::string_view key) const { return ToQt(m_strings.Text(key)).replace('&', "&&"); }

  QMenu* GroupMenu(shell::CommandGroup group) {
    if (m_menu == nullptr || group != m_group) {
      m_group = group;
      m_menu = m_root.addMenu(Title(kGroupTitles[static_cast<std::size_t>(group)]));
    }
    return m_menu;
  }

  QAction* AddEntry(QMenu& menu, const QString& title, const shell::CommandRow& row,
                    std::optional<std::int64_t> argument) {
    QAction* action = menu.addAction(title);
    QObject::connect(action, &QAction::triggered, action,
                     [onAction = m_onAction, &row, argument] { onAction(row, argument); });
    return action;
  }

  void AddTags(QMenu& menu, const shell::CommandRow& row) {
    QMenu* tags = menu.addMenu(Title(row.titleKey));
    AddEntry(*tags, Title("menuNoTag"), row, 0);
    for (std::size_t i = 1; i < shell::kPageTitleTags.size(); ++i) {
      AddEntry(*tags, ToQt(shell::kPageTitleTags[i]), row, static_cast<std::int64_t>(i));
    }
  }

  const shell::StringTable& m_strings;
  OnAction m_onAction;
  QMenu& m_root;
  QMenu* m_menu = nullptr;
  shell::CommandGroup m_group{};
};

}  // namespace

std::unique_ptr<QMenu> BuildActionMenu(const shell::StringTable& strings, OnAction onAction) {
  auto menu = std::make_unique<QMenu>();
  Builder builder(strings, std::move(onAction), *menu);
  for (const shell::CommandRow& row : shell::CommandTable()) builder.Add(row);
  return menu;
}

}  // namespace quill::ui
