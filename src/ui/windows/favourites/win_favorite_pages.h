#pragma once
#include <functional>
#include <string>
#include <vector>

#include "files/favourites/favourite_list.h"
#include "shell/favourites.h"
#include "ui/kit/modal_window.h"
#include "ui/kit/named_rows.h"

class QMenu;

namespace quill::ui {

class FilterList;

/// What the favourites' window has others do; both are told an id.
struct FavouriteHooks {
  std::function<void(const std::string& id)> open;
  /// Calls `done` on the GUI thread when the file is written, or is not to be.
  std::function<void(const std::string& id, std::function<void()> done)> remove;
};

/// The user's favourite pages or sections: a click or Return opens one in OneNote, Delete takes one away. The
/// window stays open for the next one.
class MWinFavoritePages final : public ModalWindow {
  Q_OBJECT

 public:
  /// `file` is where the favourites are kept.
  MWinFavoritePages(const shell::StringTable& strings, shell::FavoriteType type, std::filesystem::path file,
                    FavouriteHooks hooks);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool TakeAnswer() override { return true; }
  void Deliver() override {}
  QString Nothing(const std::string& problem) const;
  void AddButtons();
  void AddRowAction(std::string_view key, const char* name, void (MWinFavoritePages::*run)());
  void Reload();
  void TableClick();
  void buttonDeleteClick();

  const shell::StringTable& m_texts;
  shell::FavoriteType m_type;
  std::filesystem::path m_file;
  FavouriteHooks m_hooks;
  std::vector<files::Favourite> m_favourites;
  NamedRows m_rows;
  FilterList* m_tableViewFav;
  QMenu* m_menu;
  std::vector<QPushButton*> m_needRow;
};

}  // namespace quill::ui
