#include "ui/windows/image_table/win_image_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QCheckBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QThreadPool>
#include <semaphore>

#include "gui_world.h"
#include "shell/skipped_pictures.h"
#include "shell/temporary_folder.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/image_table/image_list_view.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSubsetOf;
using testing::UnorderedElementsAre;
using Choice = shell::ImageTableChoice;
using Names = std::vector<std::string>;

class ImageTableWindow : public testing::Test {
 protected:
  void Open(tools::ImageTableStyle remembered = {}, PictureWalk::Expand expand = {}) {
    const auto done = [this](std::optional<Choice> given) {
      ++answers;
      answer = std::move(given);
    };
    window = new MWinImageTable(world.strings, panels, {remembered}, done, std::move(expand));
    window->show();
    window->activateWindow();
    ASSERT_NE(WaitForWindow<MWinImageTable>(), nullptr);
  }

  std::string Write(const std::string& name, QSize size = {64, 48}) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, size.width(), size.height());
    sky.setColorAt(0, QColor::fromHsv(int(name.size() * 47 % 360), 160, 230));
    sky.setColorAt(1, QColor(250, 240, 210));
    painter.fillRect(image.rect(), sky);
    painter.end();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, name.ends_with("jpg") ? "jpeg" : "png"));
    return folder.Write(name, {buffer.data().constData(), std::size_t(buffer.data().size())}).string();
  }

  ImageListView& view() { return *window->findChild<ImageListView*>(); }
  QPushButton& Button(const std::string& text) {
    for (auto* button : window->findChildren<QPushButton*>()) {
      if (FromQt(button->text().remove('&')) == text) return *button;
    }
    throw std::runtime_error("no button " + text);
  }

  /// Drops onto a widget what a file manager holds, as it does with Shift down: to be moved.
  static Qt::DropAction Drop(QWidget& where, const QPoint& at, QMimeData& data) {
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, {});
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&where, &enter);
    if (!enter.isAccepted()) return Qt::IgnoreAction;
    QDropEvent drop(at, actions, &data, Qt::LeftButton, {});
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&where, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
  }
  Qt::DropAction DropFiles(const Names& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths) {
      urls << (path.find("://") != std::string::npos ? QUrl(ToQt(path)) : QUrl::fromLocalFile(ToQt(path)));
    }
    data.setUrls(urls);
    return Drop(*window, {5, 5}, data);
  }
  /// The upper part of a row, where a drop goes in front of it.
  QPoint Above(int row) { return view().visualRect(view().model()->index(row, 0)).topLeft() + QPoint(20, 2); }

  Names Listed() {
    Names names;
    for (int row = 0; row < view().model()->rowCount(); ++row) {
      names.push_back(FromQt(view().model()->index(row, 0).data().toString()));
    }
    return names;
  }
  bool WaitForRows(int count) {
    return WaitUntil([this, count] { return view().model()->rowCount() == count && OkIs(count > 0); });
  }
  bool OkIs(bool enabled) { return Button("Insert").isEnabled() == enabled; }
  void MarkRows(const std::vector<int>& rows) {
    view().setFocus();
    view().clearSelection();
    for (const int row : rows) {
      const QModelIndex index = view().model()->index(row, 0);
      view().selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select);
    }
  }
  std::string Words() {
    std::string words;
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (label->isVisible()) words += FromQt(label->accessibleName() + ' ' + label->text()) + "\n";
    }
    return words;
  }
  void OpenFive() {
    Open();
    Names paths;
    for (const char* name : {"a.png", "b.png", "c.png", "d.png", "e.png"}) paths.push_back(Write(name));
    DropFiles(paths);
    ASSERT_TRUE(WaitForRows(5));
  }

  std::string Skipped(const std::string& path, tools::SkipReason reason) {
    return shell::SkippedText(world.strings, {path, reason});
  }

  test::TemporaryFolder folder;
  GuiWorld world;
  PanelMemory panels;
  int answers = 0;
  std::optional<Choice> answer;
  QPointer<MWinImageTable> window;
};

/// A walk through a disk without an end: finds seven pictures and goes on until it is stopped.
struct EndlessWalk {
  PictureWalk::Expand Expand() {
    return [ended = ended](const std::vector<std::string>& paths, const tools::WalkProgress& progress) {
      while (progress(7)) std::this_thread::yield();
      ended->release();
      return tools::PictureList{{paths[0] + "/found.png"}, {}, true};
    };
  }
  std::shared_ptr<std::binary_semaphore> ended = std::make_shared<std::binary_semaphore>(0);
};

// With nothing chosen there is nothing to insert: Return is no answer, and the window stays.
TEST_F(ImageTableWindow, AnEmptyListIsNoAnswer) {
  Open();
  Picture(*window, "image-table-empty");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_TRUE(OkIs(false));
  Press(Qt::Key_Return);
  Press(Qt::Key_Return, Qt::ControlModifier);
  Press(Qt::Key_Delete);
  Press(Qt::Key_Up, Qt::AltModifier);
  ProcessEventsFor(20ms);
  ASSERT_FALSE(window.isNull());
  EXPECT_EQ(answers, 0);
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([this] { return window.isNull(); }));
  EXPECT_EQ(answers, 1);
  EXPECT_FALSE(answer.has_value());
}

// What is inserted is the list as it was put in order, with the arrangement that was chosen; the boxes begin
// as they were left.
TEST_F(ImageTableWindow, AnswersTheOrderAndTheStyle) {
  const Names paths = {Write("a.png"), Write("b.jpg"), Write("a.png")};
  Open({tools::ImageLayout::Horizontal, tools::ImageNames::Hidden});
  const QList<QCheckBox*> boxes = window->findChildren<QCheckBox*>();
  EXPECT_TRUE(boxes[0]->isChecked());
  EXPECT_FALSE(boxes[1]->isChecked());
  DropFiles(paths);
  ASSERT_TRUE(WaitForRows(3)) << "the same picture twice is what the user wanted";
  MarkRows({1});
  Press(Qt::Key_Up, Qt::AltModifier);
  boxes[0]->click();
  Press(Qt::Key_Return);
  ASSERT_TRUE(WaitUntil([this] { return window.isNull(); }));
  ASSERT_TRUE(answer.has_value());
  EXPECT_THAT(answer->paths, ElementsAre(paths[1], paths[0], paths[2]));
  EXPECT_EQ(answer->style.layout, tools::ImageLayout::Vertical);
  EXPECT_EQ(answer->style.names, tools::ImageNames::Hidden);
  EXPECT_EQ(answers, 1);
}

// Several at once by the keyboard; what is marked stays marked, so that the key can be held down.
TEST_F(ImageTableWindow, IsPutInOrderByKeyboard) {
  OpenFive();
  MarkRows({1, 3});
  Press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_THAT(Listed(), ElementsAre("b.png", "a.png", "d.png", "c.png", "e.png"));
  EXPECT_THAT(view().MarkedRows(), ElementsAre(0, 2));
  Press(Qt::Key_Up, Qt::AltModifier);
  Press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_THAT(Listed(), ElementsAre("b.png", "d.png", "a.png", "c.png", "e.png"));
  Press(Qt::Key_Down, Qt::AltModifier);
  EXPECT_THAT(Listed(), ElementsAre("a.png", "b.png", "d.png", "c.png", "e.png"));
  EXPECT_EQ(FromQt(view().currentIndex().data().toString()), "d.png");
  Button("Move Down").click();
  EXPECT_THAT(Listed(), ElementsAre("a.png", "c.png", "b.png", "d.png", "e.png"));
}

// The same by dragging: rows land between others, whatever else was dropped is left alone.
TEST_F(ImageTableWindow, IsPutInOrderByDragging) {
  OpenFive();
  MarkRows({1, 4});
  const std::unique_ptr<QMimeData> drag(view().model()->mimeData(view().selectionModel()->selectedRows()));
  EXPECT_EQ(Drop(*view().viewport(), Above(0), *drag), Qt::MoveAction);
  EXPECT_THAT(Listed(), ElementsAre("b.png", "e.png", "a.png", "c.png", "d.png"));
  EXPECT_THAT(view().MarkedRows(), ElementsAre(0, 1));
  EXPECT_EQ(Drop(*view().viewport(), {20, view().viewport()->height() - 2}, *drag), Qt::MoveAction);
  EXPECT_THAT(Listed(), ElementsAre("a.png", "c.png", "d.png", "b.png", "e.png"));
  QMimeData stranger;
  stranger.setData(drag->formats().first(), "another list");
  EXPECT_EQ(Drop(*view().viewport(), Above(0), stranger), Qt::IgnoreAction);
  EXPECT_EQ(Listed().front(), "a.png");
}

// Dropped files go where they are dropped, as copies: a file manager deletes what is "moved" elsewhere.
TEST_F(ImageTableWindow, TakesDroppedFilesWhereTheyFall) {
  OpenFive();
  QMimeData files;
  files.setUrls(
      {QUrl::fromLocalFile(ToQt(Write("new 1.png"))), QUrl::fromLocalFile(ToQt(Write("new #2.png")))});
  EXPECT_EQ(Drop(*view().viewport(), Above(2), files), Qt::CopyAction);
  ASSERT_TRUE(WaitForRows(7));
  EXPECT_THAT(Listed(), ElementsAre("a.png", "b.png", "new 1.png", "new #2.png", "c.png", "d.png", "e.png"));
  EXPECT_THAT(view().MarkedRows(), ElementsAre(2, 3)) << "at hand for being moved or removed";
  EXPECT_EQ(DropFiles({Write("last.png")}), Qt::CopyAction) << "beside the list";
  ASSERT_TRUE(WaitForRows(8));
  EXPECT_EQ(Listed().back(), "last.png");
  QMimeData words;
  words.setText("Dear all");
  EXPECT_EQ(Drop(*view().viewport(), Above(2), words), Qt::IgnoreAction);
  EXPECT_EQ(Drop(*window, {5, 5}, words), Qt::IgnoreAction);
}

// Removing goes on from the row that follows, and the keyboard is never lost to a button that went grey.
TEST_F(ImageTableWindow, RemovesAndClears) {
  OpenFive();
  MarkRows({1, 2, 4});
  Press(Qt::Key_Delete);
  EXPECT_THAT(Listed(), ElementsAre("a.png", "d.png"));
  EXPECT_THAT(view().MarkedRows(), ElementsAre(1));
  Button("Remove").setFocus();
  Press(Qt::Key_Space);
  Press(Qt::Key_Space);
  EXPECT_THAT(Listed(), IsEmpty());
  EXPECT_TRUE(view().hasFocus());
  EXPECT_TRUE(OkIs(false));
  EXPECT_FALSE(Button("Move Up").isEnabled());
  DropFiles({Write("a.png"), (folder.path() / "gone.png").string()});
  ASSERT_TRUE(WaitForRows(1));
  Button("Clear").click();
  EXPECT_TRUE(OkIs(false));
  EXPECT_THAT(Words(), testing::Not(HasSubstr("gone.png")));
}

// What is left out is named with the reason, all of it, and the rest is there.
TEST_F(ImageTableWindow, NamesWhatItLeavesOut) {
  Open();
  const std::string text = folder.Write("notes.txt", "x").string();
  const std::string gone = (folder.path() / "gone.png").string();
  DropFiles({Write("a.png"), text, gone, "https://example.com/b.png"});
  ASSERT_TRUE(WaitForRows(1));
  EXPECT_THAT(Words(), HasSubstr("Left out (3): " + Skipped(gone, tools::SkipReason::Missing)));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  auto* all = window->findChild<QPlainTextEdit*>();
  EXPECT_FALSE(all->isVisible());
  Button("Show All").click();
  ASSERT_TRUE(all->isVisible());
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_EQ(FromQt(all->toPlainText()), Skipped("https://example.com/b.png", tools::SkipReason::NotAFile) +
                                            "\n" + Skipped(text, tools::SkipReason::NotAPicture) + "\n" +
                                            Skipped(gone, tools::SkipReason::Missing));
  Picture(*window, "image-table-left-out");
}

// The panels are those of the product, and what is chosen in them is added, folders with what is below them.
TEST_F(ImageTableWindow, AddsFromPanels) {
  panels.folder = ToQt(folder.path().string());
  Write("a.JPG");
  Write("trip/day 1/b.png");
  Write("trip/c.png");
  folder.Write("trip/notes.txt", "x");
  Open();
  Press(Qt::Key_Tab);
  EXPECT_THAT(Focused(), HasSubstr("Files"));
  Press(Qt::Key_Space);
  auto* panel = WaitForWindow<QFileDialog>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(FromQt(panel->accessibleDescription()), "Choose image files");
  EXPECT_EQ(panel->fileMode(), QFileDialog::ExistingFiles);
  EXPECT_EQ(FromQt(panel->nameFilters().join('|')), "*.png *.jpg *.jpeg *.jpe *.gif *.emf *.bmp");
  panel->findChild<QLineEdit*>("fileNameEdit")->setText("a.JPG");
  static_cast<QDialog*>(panel)->accept();
  ASSERT_TRUE(WaitForRows(1));
  ASSERT_TRUE(WaitUntil([this] { return window->isActiveWindow(); }));

  Button("Add Folder…").click();
  panel = WaitForWindow<QFileDialog>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(FromQt(panel->accessibleDescription()), "Choose a folder include images");
  panel->findChild<QLineEdit*>("fileNameEdit")->setText("trip");
  static_cast<QDialog*>(panel)->accept();
  ASSERT_TRUE(WaitForRows(3));
  EXPECT_THAT(Listed(), UnorderedElementsAre("a.JPG", "b.png", "c.png"));
  EXPECT_EQ(Listed().front(), "a.JPG");
  EXPECT_THAT(Words(), testing::Not(HasSubstr("notes.txt"))) << "a folder may hold what it likes";

  Button("Add Files…").click();
  ASSERT_NE(WaitForWindow<QFileDialog>(), nullptr);
  window->close();
  ASSERT_TRUE(WaitUntil([this] { return window.isNull(); }));
  static_cast<QDialog*>(OpenWindow<QFileDialog>())->reject();
}

// A walk that takes long is seen and can be stopped; what it had found is kept. Until then there is no answer
// with half of the pictures.
TEST_F(ImageTableWindow, AWalkCanBeStopped) {
  EndlessWalk walk;
  Open({}, walk.Expand());
  DropFiles({"/disk"});
  DropFiles({"/another"});
  EXPECT_FALSE(Button("Stop").isVisible());
  ASSERT_TRUE(WaitUntil([this] { return Button("Stop").isVisible(); }));
  EXPECT_TRUE(
      WaitUntil([this] { return Words().find("Looking for pictures… 7 found") != std::string::npos; }));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  EXPECT_TRUE(OkIs(false));
  Picture(*window, "image-table-walk");
  Button("Stop").click();
  ASSERT_TRUE(WaitForRows(1));
  EXPECT_THAT(Listed(), ElementsAre("found.png"));
  EXPECT_FALSE(Button("Stop").isVisible());
}

// Closing the window ends the walk and touches nothing that is gone.
TEST_F(ImageTableWindow, MayBeClosedWhileItWalks) {
  EndlessWalk walk;
  Open({}, walk.Expand());
  DropFiles({"/disk"});
  DropFiles({Write("a.png")});
  Press(Qt::Key_Escape);
  ASSERT_TRUE(WaitUntil([this] { return window.isNull(); }));
  EXPECT_TRUE(walk.ended->try_acquire_for(10s));
  EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone(10000));
  ProcessEventsFor(20ms);
  EXPECT_FALSE(answer.has_value());
}

// Thumbnails and details come by themselves; what cannot be drawn is still in the table.
TEST_F(ImageTableWindow, ShowsThumbnailsAndDetails) {
  Open();
  DropFiles({Write("Holiday at the lake, first evening.jpg", {1600, 1200}), Write("portrait.png", {300, 900}),
             folder.Write("diagram.emf", "emf").string(), folder.Write("broken.png", "no").string(),
             Write("deeply/nested/folder with a long name/and another one below it/icon.png", {24, 24})});
  ASSERT_TRUE(WaitForRows(5));
  const auto row = [this](int i, int role) { return view().model()->index(i, 0).data(role); };
  for (int i = 0; i < 5; ++i) {
    ASSERT_TRUE(WaitUntil([&] { return row(i, ImageListModel::ThumbnailRole).isValid(); })) << i;
  }
  const auto first = row(0, ImageListModel::ThumbnailRole).value<QImage>();
  EXPECT_NEAR(first.width() * 0.75, first.height(), 1);
  EXPECT_THAT(FromQt(row(0, ImageListModel::DetailRole).toString()), HasSubstr(" × 1"));
  EXPECT_THAT(FromQt(row(1, Qt::AccessibleTextRole).toString()), HasSubstr("portrait.png, 300 × 900"));
  EXPECT_TRUE(row(2, ImageListModel::ThumbnailRole).value<QImage>().isNull());
  EXPECT_TRUE(row(3, ImageListModel::ThumbnailRole).value<QImage>().isNull());
  EXPECT_THAT(Words(), testing::Not(HasSubstr("Left out")));
  MarkRows({1, 2});
  Picture(*window, "image-table");
}

// The keyboard reaches everything in the order in which it stands.
TEST_F(ImageTableWindow, IsReachedByKeyboard) {
  OpenFive();
  view().setFocus();
  EXPECT_THAT(TabOrder(*window),
              ElementsAre("Pictures", "Add Files…", "Add Folder…", "Move Up", "Move Down", "Remove", "Clear",
                          "All pictures in one row", "Show file names", "Insert", "Cancel"));
  QSet<QString> letters;
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    const QString shortcut = button->shortcut().toString();
    EXPECT_FALSE(shortcut.isEmpty() || letters.contains(shortcut)) << FromQt(button->text());
    letters << shortcut;
  }
}

// Thousands of pictures are listed and moved without reading one that is not seen.
TEST_F(ImageTableWindow, TakesThousands) {
  constexpr int kCount = 5000;
  Open({}, [](const auto&, const auto&) {
    tools::PictureList list;
    for (int i = 0; i < kCount; ++i) list.paths.push_back("/none/" + std::to_string(i) + ".png");
    return list;
  });
  DropFiles({"/none"});
  ASSERT_TRUE(WaitForRows(kCount));
  const auto begin = std::chrono::steady_clock::now();
  view().selectAll();
  QItemSelection even;
  for (int row = 0; row < kCount; row += 2)
    even.select(view().model()->index(row, 0), view().model()->index(row, 0));
  view().selectionModel()->select(even, QItemSelectionModel::ClearAndSelect);
  view().MoveMarked(RowStep::Down);
  view().scrollToBottom();
  view().RemoveMarked();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s)
      << "milliseconds, but builds for debugging are slow";
  EXPECT_EQ(view().model()->rowCount(), kCount / 2);
  EXPECT_EQ(Listed().front(), "1.png");
  ProcessEventsFor(100ms);
  EXPECT_TRUE(view().model()->index(1000, 0).data(ImageListModel::DetailRole).toString().isEmpty());
}

}  // namespace
}  // namespace quill::ui
