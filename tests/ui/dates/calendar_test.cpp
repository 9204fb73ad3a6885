#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QCalendarWidget>
#include <QProxyStyle>
#include <QTableView>
#include <QTest>

#include "open_dialog.h"
#include "ui/windows/dates/win_calendar.h"

namespace quill::ui {
namespace {

using std::chrono::year_month_day;
using testing::_;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;
using Span = shell::CalendarChoice::Span;
using Dialog = OpenDialog<MWinCalendar>;

constexpr year_month_day kToday = 2026y / 11 / 15;

/// The first of the picker's column heads.
std::string FirstWeekday(const QWidget& window) {
  const QAbstractItemModel* days = window.findChild<QTableView*>()->model();
  return FromQt(days->data(days->index(0, 0)).toString());
}

// Today is chosen, Return is the month: the calendar of this month is one key. The arrows go from there.
TEST(Calendar, PicksADayWithTheKeyboard) {
  const LocaleScope english("en_GB");
  Dialog dialog(shell::CalendarRequest{kToday, false});
  EXPECT_THAT(UnnamedControls(*dialog.window), IsEmpty());
  EXPECT_EQ(FirstWeekday(*dialog.window), "Sun");
  Picture(*dialog.window, "calendar");
  Press(Qt::Key_Down);
  Press(Qt::Key_PageDown);
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(dialog.window->findChild<QCalendarWidget*>()->selectedDate(), QDate(2027, 12, 22));
  Press(Qt::Key_Return);
  ASSERT_TRUE(dialog.answer.has_value());
  EXPECT_EQ(dialog.answer->day, 2027y / 12 / 22);
  EXPECT_EQ(dialog.answer->span, Span::Month);
}

/// A desktop on which files open with one click.
class SingleClicks final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint == SH_ItemView_ActivateItemOnSingleClick) return 1;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }
};

// A click chooses a day, on every desktop; only a double click is an answer.
TEST(Calendar, PicksADayWithTheMouse) {
  SingleClicks style;
  Dialog dialog(shell::CalendarRequest{kToday, false});
  auto* days = dialog.window->findChild<QTableView*>();
  days->setStyle(&style);
  const auto center = [&](int row) {  // of a Wednesday
    return days->visualRect(days->model()->index(row, 3)).center();
  };
  QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, center(2));
  const auto* picker = dialog.window->findChild<QCalendarWidget*>();
  const QDate chosen = picker->selectedDate();
  EXPECT_NE(chosen, QDate(2026, 11, 15));
  EXPECT_EQ(chosen.dayOfWeek(), Qt::Wednesday);
  EXPECT_FALSE(dialog.closed);
  QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, center(0));
  EXPECT_FALSE(dialog.closed) << "the name of a weekday";
  QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, center(3));
  QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, center(3));
  ASSERT_TRUE(dialog.answer.has_value());
  EXPECT_EQ(dialog.answer->span, Span::Month);
}

// The other button answers with the year; the week starts as the setting says.
TEST(Calendar, AnswersWithTheWholeYear) {
  const LocaleScope english("en_GB");
  Dialog dialog(shell::CalendarRequest{kToday, true});
  EXPECT_EQ(FirstWeekday(*dialog.window), "Mon");
  for (int i = 0; i < 2; ++i) Press(Qt::Key_Tab);
  Press(Qt::Key_Space);
  ASSERT_TRUE(dialog.answer.has_value());
  EXPECT_EQ(dialog.answer->day, kToday);
  EXPECT_EQ(dialog.answer->span, Span::Year);
}

// A far year is typed, and only years that a calendar is made of can be. "Today" leads back.
TEST(Calendar, GoesToAMonthOfAnotherYear) {
  const LocaleScope english("en_GB");
  Dialog dialog(shell::CalendarRequest{2024y / 2 / 29, true});
  EXPECT_THAT(TabOrder(*dialog.window),
              ElementsAre("Days. Page Up and Page Down change the month, with Control the year.",
                          "Insert Month", "Insert Year", "Cancel", _, "Year:", "Today"));
  const auto* picker = dialog.window->findChild<QCalendarWidget*>();
  PressButton(Qt::Key_Y);
  Type("9999");
  EXPECT_EQ(picker->selectedDate(), QDate(9999, 2, 28)) << "no leap year";
  dialog.window->findChild<QTableView*>()->setFocus();
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(picker->selectedDate().year(), 9999) << "no year 10000";
  PressButton(Qt::Key_M);
  Press(Qt::Key_End);
  EXPECT_EQ(picker->selectedDate().month(), 12);
  PressButton(Qt::Key_T);
  EXPECT_EQ(picker->selectedDate(), QDate(2024, 2, 29));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(dialog.closed);
  EXPECT_FALSE(dialog.answer.has_value());
}

}  // namespace
}  // namespace quill::ui
