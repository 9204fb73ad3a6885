#include "ui/windows/packages/win_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <semaphore>

#include "gui_world.h"
#include "shell/temporary_folder.h"
#include "ui/kit/plain_style.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/packages/notebook_tree.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FolderWindow : public testing::Test {
 protected:
  static void SetUpTestSuite() { PlainStyle::UseWhereNothingIsNative(); }
  void Open(const std::vector<std::string>& names, MWinFolder::Measure measure = {}) {
    shell::PackageRequest request;
    for (const std::string& name : names) request.notebooks.push_back({true, name, folder.path() / name});
    const auto done = [this](std::optional<shell::PackageChoice> given) {
      ++answers;
      answer = std::move(given);
    };
    window = new MWinFolder(world.strings, panels, request, done, std::move(measure));
    window->show();
    window->activateWindow();
    ASSERT_NE(WaitForWindow<MWinFolder>(), nullptr);
  }
  NotebookTree& tree() { return *window->findChild<NotebookTree*>(); }
  /// What a cell shows, without the marks around it that fix its direction of reading.
  std::string Cell(int row, int column) {
    QString text = tree().topLevelItem(row)->text(column);
    return FromQt(text.remove(QChar(0x2068)).remove(QChar(0x2069)));
  }
  std::vector<bool> Checks() {
    std::vector<bool> checks;
    for (int row = 0; row < tree().topLevelItemCount(); ++row)
      checks.push_back(tree().IsChecked(static_cast<std::size_t>(row)));
    return checks;
  }
  QPushButton& Button(const std::string& text) {
    for (auto* button : window->findChildren<QPushButton*>()) {
      if (FromQt(button->text().remove('&')) == text) return *button;
    }
    throw std::runtime_error("no button " + text);
  }
  std::string Words() {
    std::string words;
    for (const auto* label : window->findChildren<QLabel*>()) words += FromQt(label->text()) + "\n";
    return words;
  }
  /// Answers the panel that is open with a path; without one, cancels it.
  void AnswerPanel(const std::string& path) {
    auto* panel = WaitForWindow<QFileDialog>();
    ASSERT_NE(panel, nullptr);
    const QPointer<QFileDialog> open = panel;
    if (path.empty()) {
      Press(Qt::Key_Escape);
    } else {
      panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(ToQt(path));
      Press(Qt::Key_Return);
    }
    ASSERT_TRUE(WaitUntil([&] { return open.isNull(); }));
  }

  test::TemporaryFolder folder;
  GuiWorld world;
  PanelMemory panels;
  int answers = 0;
  std::optional<shell::PackageChoice> answer;
  QPointer<MWinFolder> window;
};

/// The facts of a notebook by the length of its name.
files::NotebookFacts SaidFacts(const std::filesystem::path& path) {
  files::NotebookFacts facts;
  facts.sections = path.filename().string().size();
  facts.bytes = facts.sections * 1'234'567;
  facts.changed = std::chrono::sys_days(std::chrono::year(2026) / 11 / 15) + std::chrono::hours(14);
  facts.unreadable = path.filename() == "Torn" ? 2 : 0;
  return facts;
}

// The list does not wait for the disk, however slow; what it holds comes in row by row.
TEST_F(FolderWindow, ShowsTheListAtOnceAndTheFactsLater) {
  auto disk = std::make_shared<std::counting_semaphore<>>(0);
  Open({"Garden", "Torn", "A notebook with a rather long name, as people who sort by year like them"},
       [disk](const std::filesystem::path& path, const files::IsCancelled&) {
         disk->acquire();
         return SaidFacts(path);
       });
  EXPECT_EQ(Cell(0, 2), "…");
  EXPECT_THAT(Words(), HasSubstr("3 of 3 chosen, …"));
  Picture(*window, "packages-counting");
  disk->release();
  ASSERT_TRUE(WaitUntil([&] { return Cell(0, 3) == "6"; }));
  EXPECT_EQ(Cell(0, 2), "7.1 MB");
  EXPECT_EQ(Cell(1, 3), "…");
  disk->release(2);
  ASSERT_TRUE(WaitUntil([&] { return Cell(2, 3) != "…"; }));
  EXPECT_THAT(FromQt(tree().topLevelItem(1)->toolTip(3)), HasSubstr("2 could not be read"));
  EXPECT_TRUE(tree().topLevelItem(0)->toolTip(3).isEmpty());
  Button("None").click();
  tree().topLevelItem(0)->setCheckState(0, Qt::Checked);
  EXPECT_THAT(Words(), HasSubstr("1 of 3 chosen, 7.1 MB"));
  Picture(*window, "packages");
}

// Everything goes by keyboard: the space bar flips a row, wherever the mouse was before.
TEST_F(FolderWindow, IsUsedByKeyboard) {
  Open({"A", "B", "C"}, [](const auto& path, const auto&) { return SaidFacts(path); });
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_THAT(TabOrder(*window),
              ElementsAre("Notebooks to pack", "All", "None", "Invert", "Pack…", "Cancel"));
  tree().setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_THAT(Checks(), ElementsAre(true, false, true));
  tree().setCurrentItem(tree().topLevelItem(2), 3);
  Press(Qt::Key_Space);
  EXPECT_THAT(Checks(), ElementsAre(true, false, false));
  Button("Invert").click();
  EXPECT_THAT(Checks(), ElementsAre(false, true, true));
  Button("All").click();
  EXPECT_THAT(Checks(), ElementsAre(true, true, true));
  Button("None").click();
  EXPECT_THAT(Words(), HasSubstr("Nothing is chosen"));
  EXPECT_FALSE(Button("Pack…").isEnabled());
  tree().setFocus();
  Press(Qt::Key_Return);
  ProcessEventsFor(20ms);
  EXPECT_EQ(OpenWindow<QFileDialog>(), nullptr);
  EXPECT_EQ(answers, 0);
}

// Who cancels the question for the folder is back in the list as it was; a folder is the answer.
TEST_F(FolderWindow, AsksForTheFolder) {
  Open({"A", "B"});
  tree().setFocus();
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);
  AnswerPanel("");
  ASSERT_FALSE(window.isNull());
  EXPECT_EQ(answers, 0);
  EXPECT_THAT(Checks(), ElementsAre(false, true));
  window->activateWindow();
  Button("Pack…").click();
  AnswerPanel(folder.path().string());
  ASSERT_TRUE(WaitUntil([&] { return window.isNull(); }));
  ASSERT_TRUE(answer.has_value());
  EXPECT_EQ(answers, 1);
  EXPECT_EQ(answer->target, folder.path());
  EXPECT_FALSE(answer->notebooks.at(0).checked);
  EXPECT_TRUE(answer->notebooks.at(1).checked);
  EXPECT_EQ(answer->notebooks.at(1).path, folder.path() / "B");
}

// An empty store is said in words, and there is nothing to press but Close.
TEST_F(FolderWindow, SaysThatThereIsNothing) {
  Open({});
  Picture(*window, "packages-empty");
  EXPECT_THAT(Words(), HasSubstr("no notebooks"));
  EXPECT_EQ(Focused(), "&Close");
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([&] { return window.isNull(); }));
  EXPECT_FALSE(answer.has_value());
}

// Closing the window ends the counting on a disk that is still being read.
TEST_F(FolderWindow, EndsCountingWhenClosed) {
  auto ended = std::make_shared<std::binary_semaphore>(0);
  Open({"A"}, [ended](const std::filesystem::path&, const files::IsCancelled& isCancelled) {
    while (!isCancelled()) std::this_thread::yield();
    ended->release();
    return files::NotebookFacts{};
  });
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([this] { return window.isNull(); }));
  EXPECT_TRUE(ended->try_acquire_for(10s));
}

}  // namespace
}  // namespace quill::ui
