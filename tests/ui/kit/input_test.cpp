#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/kit/win_input.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Text = std::optional<std::string>;

// Giving a name is typing and Return: the proposal is selected, so typing replaces it.
TEST(Input, TypingReplacesTheProposal) {
  GuiWorld world;
  const auto ask = [&] { return world.ui.AskText({"Save as Template", "Name of the template:", "Week"}); };
  auto typed = world.OnCommandThread(ask);
  auto* window = WaitForWindow<MWinInput>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(FromQt(window->windowTitle()), "Save as Template");
  EXPECT_EQ(Focused(), "Week");
  EXPECT_THAT(TabOrder(*window), ElementsAre("Name of the template:", "OK", "Cancel"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "input");
  Type("Diary");
  Press(Qt::Key_Return);
  EXPECT_EQ(typed.Answer(), Text("Diary"));

  auto emptied = world.OnCommandThread(ask);
  ASSERT_NE(WaitForWindow<MWinInput>(), nullptr);
  Press(Qt::Key_Delete);
  Press(Qt::Key_Return);
  EXPECT_EQ(emptied.Answer(), Text("")) << "an empty text is an answer, not a refusal";

  auto cancelled = world.OnCommandThread(ask);
  ASSERT_NE(WaitForWindow<MWinInput>(), nullptr);
  Type("Diary");
  Press(Qt::Key_Escape);
  EXPECT_EQ(cancelled.Answer(), std::optional<Text>(std::in_place, std::nullopt));
}

// A label may be a whole sentence and a proposal a whole page title: the window stays a window.
TEST(Input, LongTextsDoNotWidenTheWindow) {
  GuiWorld world;
  auto asked = world.OnCommandThread([&] {
    return world.ui.AskText(
        {std::string(500, 't'), std::string(300, 'l') + " <b>label</b>", std::string(900, 'p')});
  });
  auto* window = WaitForWindow<MWinInput>();
  ASSERT_NE(window, nullptr);
  EXPECT_LT(window->width(), 800);
  Press(Qt::Key_Return);
  EXPECT_EQ(asked.Answer(), Text(std::string(900, 'p')));
}

}  // namespace
}  // namespace quill::ui
