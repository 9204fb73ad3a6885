#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include "gui_world.h"
#include "shell/temporary_folder.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/window_place.h"
#include "ui/windows/backup/backup_list.h"
#include "ui/windows/backup/win_backup.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The window on backups in a folder of the test's own, and what it had others do.
struct BackupWindow : testing::Test {
  void Add(const std::string& name, std::size_t bytes, bool isWhole = true) {
    const std::string text(bytes, 'x');
    folder.Write("Support/OneAppBackup/" + name + "/OneNote/15.0/Cache/Work/Plan.one (1).one", text);
    folder.Write("Support/OneAppBackup/" + name + "/OneNote/15.0/Cache/Work/Plan.one (2).one", "");
    folder.Write("Support/OneAppBackup/" + name + "/OneNote/15.0/Cache/Home/Food.one", "");
    if (!isWhole) files::MarkIncomplete(places.backupFolder, name);
  }
  MWinBackup& Open() {
    BackupHandlers handlers;
    handlers.places = places;
    handlers.today = [] { return *ParseStoredDate("20240301"); };
    handlers.restore = [this](const std::string& name, const std::string& day, const BackupTask& begun) {
      did.push_back("restore " + name + ", " + day);
      task = begun;
    };
    handlers.clear = [this](const BackupTask& begun) {
      did.emplace_back("clear");
      task = begun;
    };
    auto* window = new MWinBackup(world.strings, std::move(handlers));
    BringToFront(*window);
    EXPECT_EQ(WaitForWindow<MWinBackup>(), window);
    EXPECT_TRUE(WaitUntil([&] { return IsMeasured(*window); }));
    return *window;
  }
  static bool IsMeasured(MWinBackup& window) {
    const BackupList& list = List(window);
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
      if (list.topLevelItem(row)->text(2) == QStringLiteral("…")) return false;
    }
    return list.topLevelItemCount() > 0;
  }
  static BackupList& List(MWinBackup& window) { return *window.findChild<BackupList*>(); }
  static QPushButton& Button(MWinBackup& window, const char* name) {
    return *window.findChild<QPushButton*>(QLatin1String(name));
  }
  static std::vector<std::string> Row(MWinBackup& window, int row) {
    std::vector<std::string> cells;
    for (int column = 0; column < 6; ++column)
      cells.push_back(FromQt(List(window).topLevelItem(row)->text(column)));
    return cells;
  }
  /// The first whole backup in the order of the file system.
  std::string First() const {
    const auto backups = files::ListBackups(places);
    return std::ranges::find_if(*backups, &files::Backup::isWhole)->name;
  }

  GuiWorld world;
  const test::TemporaryFolder folder;
  files::BackupPlaces places{folder.path() / "Support", folder.path() / "Support/OneAppBackup",
                             folder.path() / "OneNote"};
  std::vector<std::string> did;
  std::optional<BackupTask> task;
};

// Everything there is, the newest first; what was cut off is shown, and is no choice.
TEST_F(BackupWindow, ShowsTheBackups) {
  Add("20240301", 3 << 20);
  Add("20240229", 1 << 10);
  Add("20240115", 10, false);
  fs::create_directories(places.backupFolder / "notes");
  MWinBackup& window = Open();
  EXPECT_THAT(Row(window, 0), ElementsAre(HasSubstr("2024"), "Today", "3.0 MB", "2", "2", "Complete"));
  EXPECT_THAT(Row(window, 1), ElementsAre(HasSubstr("2024"), "Yesterday", "1.0 kB", "2", "2", "Complete"));
  EXPECT_THAT(Row(window, 2),
              ElementsAre(HasSubstr("2024"), "46 days ago", "10 bytes", "2", "2", "Incomplete"));
  EXPECT_EQ(List(window).topLevelItemCount(), 3);
  const QPushButton* restore[] = {&Button(window, "ButtonRestore1"), &Button(window, "ButtonRestore2")};
  EXPECT_THAT((std::vector{FromQt(restore[0]->text()), FromQt(restore[1]->text())}),
              testing::UnorderedElementsAre("20240301", "20240229"));
  EXPECT_THAT(UnnamedControls(window), IsEmpty());
  EXPECT_THAT(TabOrder(window), testing::SizeIs(5));
  Picture(window, "backups");
}

// Both buttons restore the first one's backup: whoever looks at them, or listens, is told so.
TEST_F(BackupWindow, RestoresTheFirst) {
  Add("20240301", 1);
  Add("20240229", 1);
  MWinBackup& window = Open();
  const std::string day = First() == "20240301" ? "March" : "February";
  for (const char* name : {"ButtonRestore1", "ButtonRestore2"}) {
    EXPECT_THAT(FromQt(Button(window, name).accessibleDescription()), HasSubstr(day));
    Button(window, name).setFocus();
    Press(Qt::Key_Space);
    ASSERT_TRUE(task.has_value());
    EXPECT_FALSE(Button(window, name).isEnabled()) << "not twice";
    task->onEnd();
    EXPECT_TRUE(WaitUntil([&] { return Button(window, name).isEnabled(); }));
  }
  EXPECT_THAT(did, ElementsAre(AllOf(HasSubstr("restore " + First()), HasSubstr(day)), did[0]));
}

// A copy of gigabytes can be stopped, and the window is itself again afterwards.
TEST_F(BackupWindow, ShowsTheWorkAndStopsIt) {
  Add("20240301", 1);
  MWinBackup& window = Open();
  EXPECT_FALSE(Button(window, "ButtonRestore2").isEnabled());
  Button(window, "ButtonRestore1").click();
  const auto* bar = window.findChild<QProgressBar*>();
  EXPECT_FALSE(bar->isVisible()) << "while the user is asked";
  task->onBegin();
  EXPECT_TRUE(bar->isVisible());
  EXPECT_THAT(UnnamedControls(window), IsEmpty());
  Picture(window, "backups-restoring");
  EXPECT_FALSE(*task->isCancelled);
  Press(Qt::Key_Space);
  EXPECT_TRUE(*task->isCancelled) << "the keyboard is on Cancel";
  task->onEnd();
  EXPECT_FALSE(bar->isVisible());
  EXPECT_TRUE(WaitUntil([&] { return Button(window, "ButtonRestore1").isEnabled(); }));
}

// After the deletion the buttons have no names; the work's end may come when the window is gone.
TEST_F(BackupWindow, ClearsAndIsClosed) {
  Add("20240301", 1);
  QPointer<MWinBackup> window = &Open();
  Button(*window, "clear").click();
  EXPECT_THAT(did, ElementsAre("clear"));
  fs::remove_all(places.backupFolder);
  task->onBegin();
  task->onEnd();
  EXPECT_TRUE(WaitUntil([&] { return Button(*window, "ButtonRestore1").text().isEmpty(); }));
  for (const char* name : {"ButtonRestore1", "ButtonRestore2", "clear"})
    EXPECT_FALSE(Button(*window, name).isEnabled());
  EXPECT_EQ(FromQt(Button(*window, "ButtonRestore1").accessibleDescription()), "");
  Picture(*window, "backups-none");
  Add("20240301", 1);
  Button(*window, "clear").click();
  BackupTask last = *task;
  window->close();
  EXPECT_TRUE(WaitUntil([&] { return window.isNull(); }));
  last.onBegin();
  last.onEnd();
}

}  // namespace
}  // namespace quill::ui
