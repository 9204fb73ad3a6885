#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QPushButton>
#include <QScreen>

#include "gui_world.h"
#include "ui/kit/modal_window.h"
#include "ui/kit/qt_text.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> ButtonsInOrder(const QWidget& window) {
  std::map<int, std::string> byPlace;
  for (auto* button : window.findChildren<QPushButton*>()) {
    if (button->isVisible())
      byPlace[(window.isRightToLeft() ? -1 : 1) * button->mapTo(&window, QPoint()).x()] =
          FromQt(button->text());
  }
  std::vector<std::string> texts;
  for (const auto& [x, text] : byPlace) texts.push_back(text);
  return texts;
}

// A hasty Return or Escape must never delete or replace anything: only a deliberate YES is one.
TEST(Question, IsNoUnlessYesIsPressed) {
  struct Way {
    const char* name;
    std::function<void(QWidget&)> answer;
    bool yes;
  };
  const std::vector<Way> ways{
      {"Return", [](auto&) { Press(Qt::Key_Return); }, false},
      {"Space", [](auto&) { Press(Qt::Key_Space); }, false},
      {"Escape", [](auto&) { Press(Qt::Key_Escape); }, false},
      {"close button", [](auto& window) { window.close(); }, false},
      {"Tab Return",
       [](auto&) {
         Press(Qt::Key_Tab);
         Press(Qt::Key_Return);
       },
       true},
      {"Tab Space",
       [](auto&) {
         Press(Qt::Key_Tab);
         Press(Qt::Key_Space);
       },
       true},
  };
  GuiWorld world;
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    auto asked = world.OnCommandThread([&] { return world.ui.AskYesNo("Delete the page “Ideas”?"); });
    auto* window = WaitForWindow<ModalWindow>();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(Focused(), "NO");
    way.answer(*window);
    EXPECT_EQ(asked.Answer(), way.yes);
    EXPECT_TRUE(WaitUntil([] { return OpenWindow<ModalWindow>() == nullptr; }));
  }
}

// The two buttons stand in this order on every desktop, whatever its custom for OK and Cancel is.
TEST(Question, HasNoBeforeYes) {
  GuiWorld world;
  auto asked = world.OnCommandThread([&] { return world.ui.AskYesNo("Delete the page “Ideas”?"); });
  auto* window = WaitForWindow<ModalWindow>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(ButtonsInOrder(*window), ElementsAre("NO", "YES"));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "question");
}

// A message holds what a service or a file says: however long, plain text, on the screen, with its button.
TEST(Alert, StaysOnTheScreenWhateverItsText) {
  std::string tenThousand;
  while (tenThousand.size() < 10'000) tenThousand += "All work and no play. ";
  std::string lines;
  for (int i = 0; i < 400; ++i) lines += "line\n";
  const std::vector<std::pair<const char*, std::string>> cases{
      {"short", "Nothing was copied. Select something in OneNote and try again."},
      {"empty", ""},
      {"long", tenThousand},
      {"word", std::string(3000, 'w')},
      {"lines", lines},
      {"markup", "<b>a.txt</b> &amp; <img src=x>"},
      {"path",
       "The file /Users/somebody/Library/Application Support/Maker/Quill Menu/Templates/Week.htm could not "
       "be written."},
  };
  GuiWorld world;
  for (const auto& [name, text] : cases) {
    SCOPED_TRACE(name);
    auto asked = world.OnCommandThread([&, said = text] {
      world.ui.ShowMessage(said);
      return true;
    });
    auto* window = WaitForWindow<ModalWindow>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry()));
    EXPECT_THAT(ButtonsInOrder(*window), ElementsAre("OK"));
    EXPECT_EQ(Focused(), "OK");
    EXPECT_THAT(UnnamedControls(*window), IsEmpty());
    Picture(*window, std::string("alert-") + name);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()), text);
    Press(Qt::Key_Return);
    EXPECT_TRUE(asked.Answer().has_value());
    EXPECT_TRUE(WaitUntil([] { return OpenWindow<ModalWindow>() == nullptr; }));
  }
}

// The program ends while a message or question is open: the command goes on, with NO.
TEST(Question, IsAnsweredNoWhenTheProgramEnds) {
  GuiWorld world;
  auto asked = world.OnCommandThread([&] { return world.ui.AskYesNo("Go on?"); });
  ASSERT_NE(WaitForWindow<ModalWindow>(), nullptr);
  world.ui.Close();
  EXPECT_EQ(asked.Answer(), false);
  EXPECT_EQ(OpenWindow(), nullptr);
  world.ui.Tell("too late");
  EXPECT_EQ(OpenWindow(), nullptr);
}

}  // namespace
}  // namespace quill::ui
