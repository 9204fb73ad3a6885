#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QElapsedTimer>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/plain_text_view.h"
#include "ui/windows/win_test.h"

namespace quill::ui {
namespace {

using testing::IsEmpty;

const std::string kTricky = "a\r\nb\rc\n\nd\u00A0e\tf\u2028g\u2029<b>\U0001F600</b>\r\n";

struct TextWindow : testing::Test {
  MWinTest* Show(const std::string& text) {
    world.windows.AddWindow<shell::TextRequest>(
        [this](const shell::TextRequest& request) { return new MWinTest(world.strings, request); });
    world.ui.ShowWindow(shell::TextRequest{"Copied HTML", text});
    return WaitForWindow<MWinTest>();
  }
  static std::string Clipboard() { return FromQt(QApplication::clipboard()->text()); }
  GuiWorld world;
};

// What OneNote copied is looked at to find out about single bytes: the button hands on exactly these.
TEST_F(TextWindow, CopiesTheTextExactly) {
  auto* window = Show(kTricky);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(FromQt(window->windowTitle()), "Copied HTML");
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Press(Qt::Key_Return);
  EXPECT_EQ(Clipboard(), kTricky);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
}

// A part that was selected in the view is just as exact, wherever it begins.
TEST_F(TextWindow, CopiesAPartExactly) {
  auto* window = Show(kTricky);
  ASSERT_NE(window, nullptr);
  auto* view = window->findChild<PlainTextView*>();
  struct Part {
    int begin, end;
    std::string text;
  };
  for (const Part& part :
       std::vector<Part>{{0, 2, "a\r\n"}, {2, 4, "b\r"}, {1, 3, "\r\nb"}, {7, 10, "d\u00A0e"}}) {
    QTextCursor cursor = view->textCursor();
    cursor.setPosition(part.begin);
    cursor.setPosition(part.end, QTextCursor::KeepAnchor);
    view->setTextCursor(cursor);
    view->setFocus();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), part.text);
  }
  view->selectAll();
  view->copy();
  EXPECT_EQ(Clipboard(), kTricky);
  Picture(*window, "text");
}

// A copied page is one line of megabytes: the window opens at once and copies all of it.
TEST_F(TextWindow, ShowsALongLineInTime) {
  const std::string line = std::string(3'000'000, 'x') + "end";
  QElapsedTimer time;
  time.start();
  auto* window = Show(line);
  ASSERT_NE(window, nullptr);
  EXPECT_LT(time.elapsed(), 20000) << "laid out as one line it takes minutes";
  Press(Qt::Key_Return);
  EXPECT_EQ(Clipboard().size(), line.size());
  auto* view = window->findChild<PlainTextView*>();
  view->moveCursor(QTextCursor::End);
  view->moveCursor(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
  view->moveCursor(QTextCursor::Left, QTextCursor::KeepAnchor);
  view->moveCursor(QTextCursor::Left, QTextCursor::KeepAnchor);
  view->copy();
  EXPECT_THAT(Clipboard(), testing::MatchesRegex("x+end")) << "lines broken by the view are whole";
}

}  // namespace
}  // namespace quill::ui
