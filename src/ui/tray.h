#pragma once
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>

#include "shell/string_table.h"
#include "ui/menu_builder.h"

namespace quill::ui {

/// The status item: icon, tool tip and the menu of all actions. GUI thread.
class Tray {
 public:
  struct Handlers {
    OnAction onAction;
    std::function<void()> onPractice;
    std::function<void()> onQuit;
  };

  Tray(const shell::StringTable& strings, Handlers handlers);

  /// Puts the icon into the tray, now or as soon as there is one.
  void Show() { m_icon.show(); }

  /// True once the desktop has given the icon its place.
  bool InPlace() const { return m_icon.geometry().isValid(); }

  QMenu& menu() { return *m_menu; }
  QRect IconGeometry() const { return m_icon.geometry(); }

 private:
  std::unique_ptr<QMenu> m_menu;
  QSystemTrayIcon m_icon;
};

}  // namespace quill::ui
