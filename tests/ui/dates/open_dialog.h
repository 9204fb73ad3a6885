#pragma once
#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <algorithm>
#include <optional>

#include "gui_world.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {

/// A dialog on the screen, with the keyboard, and what it answered.
template <class Window>
class OpenDialog {
 public:
  template <class Request>
  explicit OpenDialog(const Request& request) {
    window = new Window(m_world.strings, request, [this](auto given) {
      answer = std::move(given);
      closed = true;
    });
    window->show();
    WaitForWindow<Window>();
  }

  std::optional<typename Window::Answer> answer;
  bool closed = false;
  Window* window;

 private:
  GuiWorld m_world;  // the last: closes the window, which answers
};

/// Presses the button with this letter, as Alt does: it is seen to go down, so it takes a moment.
inline void PressButton(Qt::Key letter) {
  Press(letter, Qt::AltModifier);
  WaitUntil([] {
    const QWidget* window = QApplication::activeWindow();
    if (window == nullptr) return true;
    const auto buttons = window->findChildren<QAbstractButton*>();
    return std::none_of(buttons.begin(), buttons.end(), [](auto* button) { return button->isDown(); });
  });
}

inline std::string Clipboard() {
  return FromQt(QGuiApplication::clipboard()->text());
}

/// Another locale for this long.
class LocaleScope {
 public:
  explicit LocaleScope(const char* name) { QLocale::setDefault(QLocale(QLatin1String(name))); }
  ~LocaleScope() { QLocale::setDefault(m_before); }
  LocaleScope(const LocaleScope&) = delete;

 private:
  QLocale m_before;
};

}  // namespace quill::ui
