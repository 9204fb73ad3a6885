#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/options/win_options.h"

namespace quill::ui {

/// An options window, and a stand-in for the command thread that writes down what it is asked for.
struct OptionsTest : testing::Test {
  using Page = MWinOptions::Page;

  OptionsTest() {
    facts.settings = shell::DefaultSettings({});
    facts.hasTargetWindowPattern = true;
    facts.now = [this] { return now; };
    for (const shell::HotKeyAssignment& one : shell::AssignedHotKeys("")) {
      facts.hotKeys.push_back({one.row, one.keys});
    }
  }

  MWinOptions* Open(Page page = Page::General) {
    OptionsHandlers handlers;
    handlers.change = [this](const std::string& key, const std::string& text, OptionsHandlers::Done done) {
      asked.push_back(key + "=" + text);
      if (answersLate) {
        late.push_back(std::move(done));
      } else {
        done(problem);
      }
    };
    handlers.setExportLog = [this](bool on) { asked.push_back(on ? "log on" : "log off"); };
    handlers.runAction = [this](const std::string& action) { asked.push_back(action); };
    handlers.tell = [this](const std::string& text) { asked.push_back("told: " + text); };
    (new MWinOptions(world.strings, facts, std::move(handlers), page))->show();
    window = WaitForWindow<MWinOptions>();
    return window;
  }

  /// What was asked for since the last call.
  std::vector<std::string> Asked() { return std::exchange(asked, {}); }

  /// Presses Tab until the control with this name has the keyboard.
  bool TabTo(const std::string& name) {
    for (int i = 0; i < 40; ++i) {
      QWidget* focus = QApplication::focusWidget();
      if (focus != nullptr && window->isAncestorOf(focus) && TabOrder(*window).front() == name) return true;
      Press(Qt::Key_Tab);
    }
    return false;
  }

  /// What the focused field shows.
  static std::string Shown() {
    auto* focus = QApplication::focusWidget();
    auto* edit = qobject_cast<QLineEdit*>(focus);
    if (edit == nullptr && focus != nullptr) edit = focus->findChild<QLineEdit*>();
    return edit == nullptr ? "nothing" : FromQt(edit->text());
  }

  bool IsRead(const std::string& text) const {
    const auto labels = window->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&](QLabel* one) { return one->isVisible() && FromQt(one->text()) == text; });
  }

  GuiWorld world;
  OptionsFacts facts;
  std::chrono::system_clock::time_point now{};
  std::vector<std::string> asked;
  std::vector<OptionsHandlers::Done> late;
  bool answersLate = false;
  std::string problem;
  MWinOptions* window = nullptr;
};

}  // namespace quill::ui
