#pragma once
#include <QApplication>
#include <QWidget>
#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "shell/string_table.h"
#include "ui/kit/qt_user_interface.h"
#include "ui/kit/window_factory.h"

// Windows in a test program: the application is made before the first test and taken down after the last, on
// the "offscreen" platform unless QT_QPA_PLATFORM says otherwise.
//
// To look at windows instead of testing them: QUILL_PICTURES=DIR makes `Picture` write PNG files,
// QUILL_DARK=1 gives a dark palette, QUILL_RTL=1 mirrors the layout, QT_SCALE_FACTOR=2 doubles the size.

namespace quill::ui {

using namespace std::chrono_literals;

/// Processes events until the condition holds. False when it did not hold before the deadline.
bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline = 10s);

/// Processes events for this long: for what must *not* happen. Prefer `WaitUntil`.
void ProcessEventsFor(std::chrono::milliseconds time);

/// The visible top-level window of this type, null when there is none.
template <class Window = QWidget>
Window* OpenWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* window = dynamic_cast<Window*>(widget);
    if (window != nullptr && window->isVisible()) return window;
  }
  return nullptr;
}

/// Waits until a window of this type is on the screen and has the keyboard. Null when none came.
template <class Window = QWidget>
Window* WaitForWindow() {
  const auto active = [] {
    auto* window = OpenWindow<Window>();
    return window != nullptr && window->isActiveWindow();
  };
  return WaitUntil(active) ? OpenWindow<Window>() : nullptr;
}

/// Presses a key where the keyboard is, as a user without a mouse does.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Types a text where the keyboard is.
void Type(std::string_view text);

/// The text of the button or field that has the keyboard; its accessible name when it shows no text.
std::string Focused();

/// The controls of a window that the keyboard can reach and a screen reader would have no name for, as
/// "class objectName". Empty is right. Looks at what is visible now.
std::vector<std::string> UnnamedControls(const QWidget& window);

/// The names of the controls in the order in which Tab reaches them, from the one that has the focus.
std::vector<std::string> TabOrder(QWidget& window);

/// Writes the window into $QUILL_PICTURES/name.png; nothing when that is not set.
void Picture(QWidget& window, const std::string& name);

class GuiWorld;

/// A question that a stand-in for the command thread has asked. When a test gives up on it, its destructor
/// ends the waiting as a quitting program does.
template <class T>
class Asked {
 public:
  Asked(GuiWorld& world, std::future<T> answer) : m_world(world), m_answer(std::move(answer)) {}
  ~Asked();
  Asked(Asked&&) = delete;

  bool Answered() const { return m_answer.wait_for(0s) == std::future_status::ready; }

  /// Processes events until the thread has its answer. Nothing when it got none before the deadline.
  std::optional<T> Answer(std::chrono::milliseconds deadline = 10s) {
    if (!WaitUntil([this] { return Answered(); }, deadline)) return std::nullopt;
    return m_answer.get();
  }

 private:
  GuiWorld& m_world;
  std::future<T> m_answer;
};

/// The screen of the program as commands see it, with the texts in English and no windows but those that a
/// test adds to `windows`.
class GuiWorld {
 public:
  GuiWorld() : ui(strings, windows) {}
  /// Ends what still waits, and every window.
  ~GuiWorld();
  GuiWorld(const GuiWorld&) = delete;

  /// Runs `work` on a thread of its own, as the command thread would, and returns at once.
  template <class Work>
  auto OnCommandThread(Work work) -> Asked<decltype(work())> {
    return {*this, std::async(std::launch::async, std::move(work))};
  }

  shell::StringTable strings;
  WindowFactory windows;
  QtUserInterface ui;
};

template <class T>
Asked<T>::~Asked() {
  if (!m_answer.valid() || Answered()) return;
  m_world.ui.Close();
  WaitUntil([this] { return Answered(); });
}

}  // namespace quill::ui
