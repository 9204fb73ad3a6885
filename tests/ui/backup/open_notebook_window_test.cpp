#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>

#include "gui_world.h"
#include "ui/kit/problem_line.h"
#include "ui/windows/open_notebook/win_open_notebook.h"

namespace quill::ui {
namespace {

using shell::OpenNotebookRequest;

struct OpenNotebookWindow : testing::Test {
  OpenNotebookWindow() {
    world.windows.AddPlainDialog<OpenNotebookRequest, MWinOpenNotebookByLink>(world.strings);
  }
  auto Ask() {
    return world.OnCommandThread([this] { return RunDialog(world.ui, OpenNotebookRequest{}); });
  }
  GuiWorld world;
};

// What is no link stays in the field with a word why; a link is taken out of the text around it.
TEST_F(OpenNotebookWindow, TakesClientLinksOnly) {
  auto asked = Ask();
  auto* window = WaitForWindow<MWinOpenNotebookByLink>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(UnnamedControls(*window), testing::IsEmpty());
  Picture(*window, "open-notebook");
  for (const char* text : {"", "https://onenote.com/a", "onenote:http://a", "onenote:https://   "}) {
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(text);
    Press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible()) << text;
    EXPECT_NE(window->findChild<ProblemLine*>(), nullptr) << text;
  }
  Picture(*window, "open-notebook-problem");
  Press(Qt::Key_A, Qt::ControlModifier);
  Type("Work: onenote:https://d.docs.live.net/7c1f/Documents/Work  ");
  Press(Qt::Key_Return);
  EXPECT_EQ(asked.Answer().value(), "onenote:https://d.docs.live.net/7c1f/Documents/Work");
}

}  // namespace
}  // namespace quill::ui
