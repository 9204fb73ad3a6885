#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QtTest/QTest>
#include <string>
#include <vector>

#include "gui_world.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/temporary_folder.h"
#include "ui/file_windows_library.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {

/// The windows as their commands open and serve them: the screen is the real one, OneNote a recorded one.
class LibraryTest : public testing::Test {
 protected:
  LibraryTest() {
    desktop.globals.folders.FavPagesFile = folder.path() / "quillfavpages.plist";
    desktop.globals.folders.FavSectionsFile = folder.path() / "quillfavsections.plist";
    desktop.globals.folders.TemplateFolder = folder.path() / "Template";
    AddLibraryWindows(world.windows, world.strings, desktop.globals.folders,
                      {[this](const std::string&, LibraryHooks::Job job, const std::function<void()>& done) {
                        Asked<bool> asked =
                            world.OnCommandThread([this, job = std::move(job)] { return Run(job); });
                        EXPECT_TRUE(asked.Answer().has_value());
                        done();
                      }});
  }

  bool Run(const LibraryHooks::Job& job) {
    shell::Services services{desktop.recording, desktop.recording, desktop.recording, world.ui,
                             desktop.clock,     world.strings,     desktop.explain,   desktop.log};
    shell::CommandContext context{services, desktop.globals};
    job(context);
    return true;
  }

  /// Runs an action on a thread of its own, as the command thread would.
  Asked<bool> Run(std::string_view action) {
    const shell::CommandRow* row = shell::FindCommand(action);
    return world.OnCommandThread(
        [this, row] { return Run([row](shell::CommandContext& context) { row->handler(context, *row); }); });
  }

  static QLineEdit& Field(QWidget& window) { return *window.findChild<QLineEdit*>(); }
  static QListView& View(QWidget& window) { return *window.findChild<QListView*>(); }

  static std::vector<std::string> Listed(QWidget& window) {
    std::vector<std::string> texts;
    const QAbstractItemModel& model = *View(window).model();
    for (int row = 0; row < model.rowCount(); ++row)
      texts.push_back(FromQt(model.index(row, 0).data(Qt::AccessibleTextRole).toString()));
    return texts;
  }

  static std::string Current(QWidget& window) {
    return FromQt(View(window).currentIndex().data().toString());
  }
  static void Click(QWidget& window, const char* button) {
    window.findChild<QPushButton*>(QLatin1String(button))->click();
  }

  GuiWorld world;
  test::TemporaryFolder folder;
  test::CommandWorld desktop;
};

}  // namespace quill::ui
