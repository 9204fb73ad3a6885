#pragma once
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>
#include <functional>
#include <memory>

#include "shell/string_table.h"
#include "ui/menu_builder.h"
#include "ui/menu_window.h"

namespace quill::ui {

/// Where the user finds the menu: the status item, or a small window on a desktop that has no place for one.
/// GUI thread.
class Tray {
 public:
  struct Handlers {
    OnAction onAction;
    std::function<void()> onAboutToShow;  ///< the menu opens: now is the time to look at the desktop
    std::function<void()> onFind;         ///< the search field is wanted
  };

  Tray(const shell::StringTable& strings, Handlers handlers);

  /// Puts the icon into the tray, now or as soon as there is one. When there is still none after three
  /// seconds, the window opens; it goes when a tray appears.
  void Show();

  /// Opens the menu at the icon, or at the pointer, or from the window.
  void ShowMenu();

  /// Shows a message of the desktop beside the icon, where the desktop has a place for both.
  void Notify(const std::string& title, const std::string& text);

  /// True once the desktop has given the icon its place.
  bool InPlace() const { return m_icon.geometry().isValid(); }

  void Retranslate();

  /// The icon for a dark or a light desktop.
  void UseDarkIcon(bool dark);

  ActionMenu& actions() { return m_actions; }
  QMenu& menu() { return m_actions.menu(); }
  QRect IconGeometry() const { return m_icon.geometry(); }

 private:
  void LookForTray();
  bool PopsUpAnywhere() const;

  const shell::StringTable& m_strings;
  Handlers m_handlers;
  ActionMenu m_actions;
  QSystemTrayIcon m_icon;
  QTimer m_lookForTray;
  std::unique_ptr<MenuWindow> m_window;
};

}  // namespace quill::ui
