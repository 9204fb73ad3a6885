#pragma once
#include <QMenu>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "shell/string_table.h"

namespace quill::ui {

/// The small window that stands for the tray icon on a desktop without a tray: the menu of all actions and
/// the search field, in front of other windows. Closing it only puts it aside, for nothing else would bring
/// it back. GUI thread.
class MenuWindow final : public QWidget {
 public:
  /// `menu` outlives the window.
  MenuWindow(const shell::StringTable& strings, QMenu& menu, std::function<void()> onFind);

  /// Writes the texts anew: the language has changed.
  void Retranslate();

  /// Shows the window in front with the menu open.
  void ShowMenu();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const shell::StringTable& m_strings;
  QPushButton* m_menuButton;
  QPushButton* m_findButton;
};

}  // namespace quill::ui
