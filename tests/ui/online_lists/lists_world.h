#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <string>
#include <vector>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/online_windows.h"

namespace quill::ui {

/// The list windows as commands open them, and what they had the program do.
class ListsTest : public testing::Test {
 protected:
  ListsTest() {
    OnlineWindowHooks hooks;
    hooks.tell = [this](const std::string& text) { did.push_back("tell " + text); };
    hooks.openLocation = [this](const std::string& link) { did.push_back("open " + link); };
    hooks.refreshNavigation = [this] { did.emplace_back("refresh"); };
    AddOnlineWindows(world.windows, world.strings, hooks);
  }

  /// Shows the window of a request and waits until it has the keyboard.
  template <class Window, class Request>
  Window* Open(const Request& request) {
    auto* window = dynamic_cast<Window*>(world.windows.Show(request));
    EXPECT_NE(window, nullptr);
    EXPECT_EQ(WaitForWindow<Window>(), window);
    return window;
  }

  static QLineEdit& Field(QWidget& window) { return *window.findChild<QLineEdit*>(); }
  static QListView& View(QWidget& window) { return *window.findChild<QListView*>(); }

  static std::string Current(QWidget& window) {
    return FromQt(View(window).currentIndex().data().toString());
  }

  static std::vector<std::string> Listed(QWidget& window) {
    std::vector<std::string> texts;
    const QAbstractItemModel& model = *View(window).model();
    for (int row = 0; row < model.rowCount(); ++row) {
      texts.push_back(FromQt(model.index(row, 0).data(Qt::AccessibleTextRole).toString()));
    }
    return texts;
  }

  /// Whether the row with this text is seen.
  static bool IsInView(QWidget& window, const std::string& text) {
    QListView& view = View(window);
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      const QModelIndex index = view.model()->index(row, 0);
      if (FromQt(index.data().toString()) != text) continue;
      return view.viewport()->rect().contains(view.visualRect(index));
    }
    return false;
  }

  GuiWorld world;
  std::vector<std::string> did;
};

}  // namespace quill::ui
