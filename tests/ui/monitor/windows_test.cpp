#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include "gui_world.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/monitor/page_chart.h"
#include "ui/windows/monitor/win_a_day_pages.h"
#include "ui/windows/monitor/win_pages_number.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::chrono::local_days Day(int day) {
  return std::chrono::local_days(std::chrono::year(2026) / 3 / day);
}

struct PagesWindow : testing::Test {
  PagesWindow() {
    facts.pages.current = 1201;
    facts.pages.countedAt = 1'800'000'000;
    facts.hasHistoryFile = true;
    facts.now = Day(20);
    SetHistory("[2026-03-02 09:00:00] 1200\n[2026-03-06 10:30:00] 1150\n[2026-03-15 08:00:00] 1201");
  }
  void SetHistory(std::string_view text) {
    facts.history = std::make_shared<const std::vector<online::PageHistoryEntry>>(
        online::ParsePageHistory(text, 5, facts.now));
  }
  MWinPagesNumber* Open() {
    auto* window =
        new MWinPagesNumber(world.strings, {[this] { ++asked; }, [this] { ++counts; }, [this] { ++opened; }});
    BringToFront(*window);
    return WaitForWindow<MWinPagesNumber>();
  }
  static std::string Said(const QWidget& window, const char* name) {
    return FromQt(window.findChild<QLabel*>(QLatin1String(name))->text());
  }

  GuiWorld world;
  PagesFacts facts;
  int asked = 0, counts = 0, opened = 0;
};

// Everything by keyboard: the chart's points, the count, the file; and every control has a name.
TEST_F(PagesWindow, IsUsedByKeyboard) {
  MWinPagesNumber* window = Open();
  ASSERT_NE(window, nullptr);
  window->Update(facts);
  EXPECT_EQ(Said(*window, "tfPageNumber"), "1201");
  EXPECT_THAT(Said(*window, "state"), StartsWith("Counted: "));
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  window->findChild<PageChart*>()->setFocus();
  EXPECT_THAT(TabOrder(*window), testing::SizeIs(4));
  Press(Qt::Key_Left);
  EXPECT_THAT(Said(*window, "point"), HasSubstr("−50, more than is tolerated"));
  Picture(*window, "pages-number");
  for (auto* button : window->findChildren<QPushButton*>()) {
    button->setFocus();
    if (FromQt(button->text()).find("lose") == std::string::npos) Press(Qt::Key_Space);
  }
  EXPECT_EQ(counts, 1);
  EXPECT_EQ(opened, 1);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([] { return OpenWindow() == nullptr; }));
}

// The number is asked for once a second, while somebody can see it.
TEST_F(PagesWindow, AsksForNewsWhileItIsSeen) {
  MWinPagesNumber* window = Open();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(WaitUntil([this] { return asked >= 3; }));
  window->hide();
  const int before = asked;
  ProcessEventsFor(1200ms);
  EXPECT_EQ(asked, before);
  window->show();
  EXPECT_TRUE(WaitUntil([&] { return asked > before + 1; }));
  QDialog modal;
  modal.setModal(true);
  modal.show();
  ASSERT_TRUE(WaitUntil([&] { return QApplication::activeModalWidget() == &modal; }));
  const int underModal = asked;
  ProcessEventsFor(1200ms);
  EXPECT_EQ(asked, underModal);
}

// The line below the number says why there is none, or since when.
TEST_F(PagesWindow, TellsTheState) {
  MWinPagesNumber* window = Open();
  ASSERT_NE(window, nullptr);
  const auto state = [&] {
    window->Update(facts);
    return Said(*window, "state");
  };
  facts.pages.askedAt = facts.pages.countedAt + 60;
  EXPECT_EQ(state(), "Counting…");
  facts.pages.failedAt = facts.pages.askedAt;
  EXPECT_THAT(state(), StartsWith("The count brought no answer: "));
  facts.pages = {};
  EXPECT_THAT(state(), StartsWith("Not counted since"));
  facts.isWatched = false;
  facts.hasHistoryFile = false;
  SetHistory("");
  EXPECT_THAT(state(), HasSubstr("switched off"));
  for (auto* button : window->findChildren<QPushButton*>())
    EXPECT_EQ(button->isEnabled(), FromQt(button->text()).find("lose") != std::string::npos);
  EXPECT_FALSE(window->findChild<PageChart*>()->isVisible()) << "words in its place";
  Picture(*window, "pages-number-empty");
  facts.isSignedIn = false;
  EXPECT_EQ(state(), "Nobody is signed in");
}

// A warning stays until the user has counted again.
TEST_F(PagesWindow, WarnsOfLostPages) {
  MWinPagesNumber* window = Open();
  ASSERT_NE(window, nullptr);
  auto* warning = window->findChild<QWidget*>(QStringLiteral("warning"));
  EXPECT_FALSE(warning->isVisible());
  window->Warn({1200, 1150});
  window->Update(facts);
  ASSERT_TRUE(warning->isVisible());
  EXPECT_THAT(FromQt(warning->findChildren<QLabel*>().last()->text()), HasSubstr("1200 then, 1150 now"));
  Picture(*window, "pages-number-warning");
  window->findChildren<QPushButton*>();
  for (auto* button : window->findChildren<QPushButton*>()) {
    if (FromQt(button->text()).find("efresh") != std::string::npos) button->click();
  }
  EXPECT_FALSE(warning->isVisible());
}

// A row for each day, the latest first, and words when there is nothing.
TEST(DaysWindow, HasARowForEachDay) {
  GuiWorld world;
  int closed = 0;
  const auto done = [&closed](std::optional<std::monostate>) { ++closed; };
  const std::vector<online::DayPages> days = {{Day(4), 1103, -1}, {Day(3), 1104, 4}, {Day(2), 1100, {}}};
  BringToFront(*new MWinADayPages(world.strings, days, Day(4), done));
  auto* window = WaitForWindow<MWinADayPages>();
  ASSERT_NE(window, nullptr);
  EXPECT_THAT(UnnamedControls(*window), IsEmpty());
  Picture(*window, "pages-days");
  const auto* list = window->findChild<QTreeWidget*>();
  std::vector<std::string> rows;
  for (int i = 0; i < list->topLevelItemCount(); ++i)
    rows.push_back(FromQt(list->topLevelItem(i)->text(1) + u' ' + list->topLevelItem(i)->text(2)));
  EXPECT_THAT(rows, ElementsAre("1,103 −1", "1,104 +4", "1,100 "));
  EXPECT_THAT(FromQt(list->topLevelItem(0)->text(0)), HasSubstr("(today)"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(WaitUntil([&] { return closed == 1; }));
  BringToFront(*new MWinADayPages(world.strings, {}, Day(4), done));
  auto* empty = WaitForWindow<MWinADayPages>();
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(empty->findChild<QTreeWidget*>(), nullptr);
  Picture(*empty, "pages-days-empty");
}

}  // namespace
}  // namespace quill::ui
