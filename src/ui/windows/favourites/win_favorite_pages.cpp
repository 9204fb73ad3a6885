#include "ui/windows/favourites/win_favorite_pages.h"

#include <QKeyEvent>
#include <QListView>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/kit/filter_list.h"
#include "ui/kit/list_icon.h"
#include "ui/kit/page_mnemonics.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/remove_key.h"
#include "ui/menu_builder.h"
#include "ui/windows/notebooks/notebook_delegate.h"

namespace quill::ui {

using shell::FavoriteType;

MWinFavoritePages::MWinFavoritePages(const shell::StringTable& strings, FavoriteType type,
                                     std::filesystem::path file, FavouriteHooks hooks)
    : ModalWindow(strings, type == FavoriteType::Pages ? "titleFavoritePages" : "MWinFavoriteSectionsTitle"),
      m_texts(strings),
      m_type(type),
      m_file(std::move(file)),
      m_hooks(std::move(hooks)),
      m_rows(ListIcon("Favourite")),
      m_menu(new QMenu(this)) {
  setObjectName(QStringLiteral("favourites"));
  m_tableViewFav =
      new FilterList(m_rows, new NotebookDelegate, FilterList::Click::Single,
                     {Text("strFavouritesFilter"), windowTitle(),
                      Nothing(files::FavouriteList(m_file).Problem()), Text("strFavouritesNotFound")});
  content().addWidget(m_tableViewFav, 1);
  AddButtons();
  AssignMnemonics(*this, {});
  m_tableViewFav->view().installEventFilter(this);
  m_tableViewFav->focusProxy()->installEventFilter(this);
  connect(m_tableViewFav, &FilterList::Chosen, this, &MWinFavoritePages::TableClick);
  connect(m_tableViewFav, &FilterList::MenuWanted, this,
          [this](const QPoint& where) { m_menu->popup(where); });
  connect(m_tableViewFav, &FilterList::CurrentChanged, this, [this] {
    for (QPushButton* button : m_needRow) button->setEnabled(m_tableViewFav->Current() >= 0);
  });
  Reload();
  m_tableViewFav->setFocus();
  resize(fontMetrics().averageCharWidth() * 72, fontMetrics().lineSpacing() * 26);
}

QString MWinFavoritePages::Nothing(const std::string& problem) const {
  if (!problem.empty()) return Format("errReadFavourites", {problem});
  return Text(m_type == FavoriteType::Pages ? "strFavouritePagesNone" : "strFavouriteSectionsNone");
}

void MWinFavoritePages::AddButtons() {
  OnlyClose();
  AddRowAction("menuNotebookOpen", "open", &MWinFavoritePages::TableClick);
  AddRowAction("strImageTableRemove", "remove", &MWinFavoritePages::buttonDeleteClick);
  m_menu->setDefaultAction(m_menu->actions().front());
}

void MWinFavoritePages::AddRowAction(std::string_view key, const char* name,
                                     void (MWinFavoritePages::*run)()) {
  QPushButton& button = AddButton(key);
  button.setObjectName(QLatin1String(name));
  button.setAutoDefault(false);
  connect(&button, &QPushButton::clicked, this, run);
  m_needRow.push_back(&button);
  m_menu->addAction(Text(key), this, run);
}

void MWinFavoritePages::Reload() {
  std::vector<files::Favourite> favourites = files::FavouriteList(m_file).All();
  const int current = std::max(0, m_tableViewFav->Current());
  m_favourites = std::move(favourites);
  std::vector<NamedRows::Row> rows;
  rows.reserve(m_favourites.size());
  for (const files::Favourite& one : m_favourites) {
    const QString title = FavouriteTitleOf(m_texts, {shell::FavouriteTitle(m_type, one.link), 0});
    const QString section = ToQt(shell::FavouriteTitle(FavoriteType::Sections, one.link)).simplified();
    rows.push_back({title, section == title ? QString() : section});
  }
  m_rows.SetRows(std::move(rows));
  // An empty list goes; the keyboard must not fall to whatever comes next.
  if (m_favourites.empty()) m_tableViewFav->setFocus();
  m_tableViewFav->Refresh(std::min(current, std::max(0, m_rows.AllRows() - 1)));
}

void MWinFavoritePages::TableClick() {
  const int row = m_tableViewFav->Current();
  if (row >= 0) m_hooks.open(m_favourites[static_cast<std::size_t>(row)].id);
}

void MWinFavoritePages::buttonDeleteClick() {
  const int row = m_tableViewFav->Current();
  if (row < 0) return;
  m_hooks.remove(m_favourites[static_cast<std::size_t>(row)].id, [window = QPointer(this)] {
    if (window) window->Reload();
  });
}

bool MWinFavoritePages::eventFilter(QObject* watched, QEvent* event) {
  if (IsRemoveKey(watched, *event)) return buttonDeleteClick(), true;
  return ModalWindow::eventFilter(watched, event);
}

void MWinFavoritePages::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel) && m_tableViewFav->ClearFilter()) return;
  ModalWindow::keyPressEvent(event);
}

}  // namespace quill::ui
