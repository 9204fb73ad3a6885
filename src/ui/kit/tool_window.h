#pragma once
#include <QApplication>
#include <QDialog>
#include <QString>
#include <string>
#include <string_view>
#include <vector>

#include "shell/string_table.h"
#include "ui/kit/window_place.h"

namespace quill::ui {

/// The frame of windows that act by themselves: an ordinary window with a title that blocks nothing. Escape
/// and the platform's close key (Control+W, Command+W) close it; it deletes itself then. GUI thread.
class ToolWindow : public QDialog {
 public:
  ToolWindow(const ToolWindow&) = delete;

 protected:
  /// `titleKey` is a key of the string table; a text from elsewhere goes to `setWindowTitle` afterwards.
  ToolWindow(const shell::StringTable& strings, std::string_view titleKey);

  /// A text of the string table, and one with its {0}, {1}, … replaced.
  QString Text(std::string_view key) const;
  QString Format(std::string_view key, const std::vector<std::string>& arguments) const;

  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  const shell::StringTable& m_strings;
  bool m_placed = false;
};

/// The open window of this type, in front; a new one from `make` when there is none. For windows of which one
/// is enough: `windows.AddWindow<AboutRequest>([&](const auto&) { return ShowOne<MWinAbout>([&] { … }); })`.
template <class Window, class Make>
Window* ShowOne(Make make) {
  Window* window = nullptr;
  for (QWidget* open : QApplication::topLevelWidgets()) {
    auto* found = dynamic_cast<Window*>(open);
    if (found != nullptr && found->isVisible()) window = found;
  }
  if (window == nullptr) window = make();
  BringToFront(*window);
  return window;
}

}  // namespace quill::ui
