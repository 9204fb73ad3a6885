#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QTemporaryDir>

#include "gui_world.h"
#include "ui/kit/modal_window.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Path = std::filesystem::path;
using MaybePath = std::optional<Path>;

/// A folder of files, and panels that begin in it.
struct FilePanels : testing::Test {
  FilePanels() {
    for (const char* name : {"old.csv", "old.CSV.txt", "picture.png", "Zoo.PNG", "note.one"}) Make(name);
    EXPECT_TRUE(QDir(folder.path()).mkdir("Archive"));
    EXPECT_TRUE(QDir(folder.path()).mkdir("Band"));
  }
  void Make(const QString& name) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  }
  Path In(const std::string& name) const { return Path(folder.path().toStdString()) / name; }

  auto Save(std::string name, std::string extension = "csv") {
    return world.OnCommandThread([=, this] {
      return world.ui.AskSavePath({"Save Table as CSV", name, extension});
    });
  }
  auto Open(platform::OpenPanel panel) {
    panel.title = "Import";
    panel.folder = folder.path().toStdString();
    return world.OnCommandThread([this, panel] { return world.ui.AskOpenPaths(panel); });
  }
  static QFileDialog* Panel() { return WaitForWindow<QFileDialog>(); }
  static QLineEdit* NameField(QFileDialog& panel) { return panel.findChild<QLineEdit*>("fileNameEdit"); }

  /// Types a whole path or name and presses Return.
  static void Enter(QFileDialog& panel, const std::string& name) {
    NameField(panel)->setFocus();
    NameField(panel)->setText(ToQt(name));
    Press(Qt::Key_Return);
  }
  /// Chooses the listed entries by name, as clicks with Control do.
  static void Choose(QFileDialog& panel, const QStringList& names) {
    auto* list = panel.findChild<QAbstractItemView*>("listView");
    if (!list->isVisible()) list = panel.findChild<QAbstractItemView*>("treeView");
    list->setFocus();
    for (const QString& name : names) {
      const auto found = [&] {
        return list->model()->match(list->rootIndex().model()->index(0, 0, list->rootIndex()),
                                    Qt::DisplayRole, name, 1, Qt::MatchExactly);
      };
      ASSERT_TRUE(WaitUntil([&] { return !found().isEmpty(); })) << FromQt(name);
      list->selectionModel()->select(found().first(),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }

  QTemporaryDir folder;
  GuiWorld world;
};

// A file is found again only by its extension: whatever is typed, the result has it, once.
TEST_F(FilePanels, SavingAppendsTheExtension) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"table", "table.csv"},     {"table.csv", "table.csv"},
      {"TABLE.CSV", "TABLE.CSV"}, {"table.txt", "table.txt.csv"},
      {"v1.2", "v1.2.csv"},       {"table.", "table.csv"},
      {".csv", ".csv.csv"},       {"say \"hi\"", "say \"hi\".csv"},
      {"Übung 7", "Übung 7.csv"},
  };
  for (const auto& [typed, saved] : cases) {
    SCOPED_TRACE(typed);
    auto asked = Save("proposal");
    QFileDialog* panel = Panel();
    ASSERT_NE(panel, nullptr);
    panel->setDirectory(folder.path());
    Enter(*panel, typed);
    EXPECT_EQ(asked.Answer(), MaybePath(In(saved)));
    EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  }
}

// "old" becomes "old.csv", which is there: without a question the user's file would be lost.
TEST_F(FilePanels, SavingAsksBeforeItReplacesEvenWhatTheExtensionLeadsTo) {
  for (const char* typed : {"old", "old.csv"}) {
    SCOPED_TRACE(typed);
    auto asked = Save("");
    QFileDialog* panel = Panel();
    ASSERT_NE(panel, nullptr);
    panel->setDirectory(folder.path());
    Enter(*panel, typed);
    auto* question = WaitForWindow<ModalWindow>();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(Focused(), "NO");
    Picture(*question, "panel-replace");
    Press(Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return OpenWindow<ModalWindow>() == nullptr && panel->isActiveWindow(); }));
    EXPECT_FALSE(asked.Answered());
    Enter(*panel, typed);
    ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(asked.Answer(), MaybePath(In("old.csv")));
    EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  }
}

// The panel is what the command asked for: its title, the proposed name with the stem ready to be replaced.
TEST_F(FilePanels, TheSavePanelProposesAName) {
  auto asked = Save("Plan 1/2");
  QFileDialog* panel = Panel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(FromQt(panel->windowTitle()), "Save Table as CSV");
  EXPECT_EQ(Focused(), "Plan 1-2.csv");
  EXPECT_EQ(FromQt(NameField(*panel)->selectedText()), "Plan 1-2");
  panel->setDirectory(folder.path());
  Picture(*panel, "panel-save");
  Press(Qt::Key_Escape);
  EXPECT_EQ(asked.Answer(), std::optional<MaybePath>(std::in_place, std::nullopt));
}

// What cannot be saved to is told while the panel stays, and a folder's name leads into that folder.
TEST_F(FilePanels, SavingToldFromGoingIntoAFolder) {
  auto asked = Save("a");
  QFileDialog* panel = Panel();
  ASSERT_NE(panel, nullptr);
  panel->setDirectory(folder.path());
  Enter(*panel, "missing/a");
  ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return OpenWindow<ModalWindow>() == nullptr && panel->isActiveWindow(); }));
  Enter(*panel, "Archive");
  EXPECT_TRUE(WaitUntil([&] { return panel->directory().dirName() == "Archive"; }));
  Enter(*panel, "a");
  EXPECT_EQ(asked.Answer(), MaybePath(In("Archive/a.csv")));

  auto again = Save("b");
  panel = Panel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(FromQt(panel->directory().path()), In("Archive").string()) << "begins where the user was last";
  panel->close();
  EXPECT_EQ(again.Answer(), std::optional<MaybePath>(std::in_place, std::nullopt));
}

// Only what the command can read is accepted; a typed name is checked like a clicked one.
TEST_F(FilePanels, OpeningRefusesWhatWasNotAskedFor) {
  platform::OpenPanel request;
  request.message = "Choose the pictures of the table.";
  request.extensions = {"png", "jpg"};
  auto asked = Open(request);
  QFileDialog* panel = Panel();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(FromQt(panel->windowTitle()), "Import");
  Picture(*panel, "panel-open");
  for (const char* wrong : {"note.one", "nothing.png"}) {
    Enter(*panel, wrong);
    ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr) << wrong;
    Press(Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return OpenWindow<ModalWindow>() == nullptr && panel->isActiveWindow(); }));
  }
  Enter(*panel, "Zoo.PNG");
  EXPECT_THAT(asked.Answer().value_or(std::vector<Path>{}), ElementsAre(In("Zoo.PNG")));
}

// Several files or folders come back all, one stays one, and Cancel is nothing.
TEST_F(FilePanels, OpeningSeveral) {
  struct Case {
    platform::OpenKind kind;
    bool several;
    QStringList chosen;
    std::vector<Path> answer;
  };
  const std::vector<Case> cases{
      {platform::OpenKind::Files, true, {"note.one", "picture.png"}, {In("note.one"), In("picture.png")}},
      {platform::OpenKind::Files, false, {"note.one"}, {In("note.one")}},
      {platform::OpenKind::Folders, true, {"Archive", "Band"}, {In("Archive"), In("Band")}},
      {platform::OpenKind::Folders, false, {"Band"}, {In("Band")}},
      {platform::OpenKind::Folders, false, {}, {In("")}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(FromQt(one.chosen.join(' ')));
    platform::OpenPanel request;
    request.kind = one.kind;
    request.several = one.several;
    auto asked = Open(request);
    QFileDialog* panel = Panel();
    ASSERT_NE(panel, nullptr);
    Choose(*panel, one.chosen);
    if (one.several) Picture(*panel, "panel-several");
    panel->activateWindow();
    static_cast<QDialog*>(panel)->accept();
    std::vector<Path> answer = asked.Answer().value_or(std::vector<Path>{});
    for (Path& path : answer) path = path.lexically_normal();
    std::vector<Path> expected = one.answer;
    if (one.chosen.isEmpty()) expected = {Path(folder.path().toStdString())};
    EXPECT_THAT(answer, testing::UnorderedElementsAreArray(expected));
    EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
  }
  auto cancelled = Open({});
  ASSERT_NE(Panel(), nullptr);
  Press(Qt::Key_Escape);
  EXPECT_THAT(cancelled.Answer().value_or(std::vector<Path>{"none"}), IsEmpty());
}

// The program ends over an open panel, even with a question above it.
TEST_F(FilePanels, TheEndOfTheProgramCancelsThem) {
  auto asked = Save("old");
  QFileDialog* panel = Panel();
  ASSERT_NE(panel, nullptr);
  panel->setDirectory(folder.path());
  Enter(*panel, "old");
  ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
  world.ui.Close();
  EXPECT_EQ(asked.Answer(), std::optional<MaybePath>(std::in_place, std::nullopt));
  EXPECT_EQ(OpenWindow(), nullptr);
}

}  // namespace
}  // namespace quill::ui
