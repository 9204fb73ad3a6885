#include "tools/calendar.h"

#include <gtest/gtest.h>

#include "tools/insert_oracles.h"

namespace quill::tools {
namespace {

using std::chrono::sys_days;

const DateStyle kEnglish{"en_US", "UTC"};

constexpr std::chrono::sys_seconds At(int year, unsigned month, unsigned day, int hour = 12) {
  return sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(hour);
}

std::size_t CountOf(std::string_view text, std::string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(piece, at)) != std::string_view::npos; at += piece.size()) ++count;
  return count;
}

// A month that begins on the wrong weekday or ends a day early is worse than none.
TEST(Calendar, AgreesWithTheSystemsCalendarForTwoCenturies) {
  for (const WeekStart start : {WeekStart::Sunday, WeekStart::Monday}) {
    for (int year = 1900; year <= 2100; ++year) {
      ASSERT_EQ(CreateCalendarAnnual(year, start, kEnglish),
                oracle::CreateCalendarAnnual(year, start, kEnglish))
          << year;
    }
  }
}

// The page that receives the table shows it exactly so: names in the user's language, room to write in.
TEST(Calendar, WritesWeekdaysNumbersAndRoomToWrite) {
  const std::string html = CreateCalendar(2026, 8, WeekStart::Monday, {"de_DE", "Europe/Berlin"});
  const std::string beginning =
      R"(<h2>2026 - 8</h2><table border="1"><tr> <th style="background-color:#acc8cc;">Mo.</th>)"
      R"( <th style="background-color:#acc8cc;">Di.</th> <th style="background-color:#acc8cc;">Mi.</th>)"
      R"( <th style="background-color:#acc8cc;">Do.</th> <th style="background-color:#acc8cc;">Fr.</th>)"
      R"( <th style="background-color:#acc8cc;">Sa.</th> <th style="background-color:#acc8cc;">So.</th></tr>)"
      R"(<tr><td><p><b></b></p></td><td><p><b></b></p></td><td><p><b></b></p></td><td><p><b></b></p></td>)"
      R"(<td><p><b></b></p></td><td><p><b>1</b></p></td><td><p><b>2</b></p></td></tr><tr>)"
      R"(<td><p>&#160;</p><p>&#160;</p></td>)";
  EXPECT_EQ(html.substr(0, beginning.size()), beginning);
  EXPECT_TRUE(html.ends_with("<td><p>&#160;</p><p>&#160;</p></td></tr></table>"));
  EXPECT_EQ(CountOf(html, "<b>"), 42u);
  EXPECT_EQ(CountOf(html, "&#160;"), 2u * 42u);
  EXPECT_EQ(CreateCalendar(2026, 8, WeekStart::Monday, {"de_DE", "UTC"}),
            oracle::CreateCalendar(2026, 8, WeekStart::Monday, {"de_DE", "UTC"}));
}

// Five week rows hold 35 cells, the limit included; a year keeps its leading line feed.
TEST(Calendar, UsesAsManyWeeksAsTheMonthNeeds) {
  const auto numberCells = [](int year, int month, WeekStart start) {
    return CountOf(CreateCalendar(year, month, start, kEnglish), "<b>");
  };
  EXPECT_EQ(numberCells(2026, 2, WeekStart::Sunday), 35u);   // 28 days from the first cell on
  EXPECT_EQ(numberCells(2026, 8, WeekStart::Sunday), 42u);   // 31 days from a Saturday on
  EXPECT_EQ(numberCells(2026, 10, WeekStart::Sunday), 35u);  // 4 + 31 exactly
  EXPECT_EQ(numberCells(2026, 11, WeekStart::Monday), 42u);  // a Sunday is the last day of the week
  const std::string year = CreateCalendarAnnual(2026, WeekStart::Sunday, kEnglish);
  EXPECT_TRUE(year.starts_with("\n<h2>2026 - 1</h2>"));
  EXPECT_EQ(CountOf(year, "</table>\n<h2>"), 11u);
}

// Not everybody counts years alike, and nobody's odd request may end the program.
TEST(Calendar, FollowsTheLocalesCalendarAndSurvivesOddMonths) {
  for (const char* locale : {"th_TH", "fa_IR", "ar_SA", "he_IL@calendar=hebrew", "en_US"}) {
    for (const int year : {-5, 1, 1400, 1582, 1583, 2569, 5786, 9999, 10000}) {
      for (const int month : {-20, 0, 1, 2, 10, 12, 13, 40}) {
        ASSERT_EQ(CreateCalendar(year, month, WeekStart::Sunday, {locale, "UTC"}),
                  oracle::CreateCalendar(year, month, WeekStart::Sunday, {locale, "UTC"}))
            << locale << ' ' << year << '-' << month;
      }
    }
  }
  EXPECT_TRUE(CreateCalendar(INT64_MAX, INT64_MIN, WeekStart::Monday, kEnglish)
                  .starts_with("<h2>9223372036854775807 - -9"));
}

// "Next month" on the 31st must not skip February, and years turn at both ends.
TEST(Calendar, ShiftsMonthsFromTheFirstDay) {
  using Month = CalendarMonth;
  EXPECT_EQ(ShiftMonth(At(2026, 1, 31), 0, kEnglish), (Month{2026, 1}));
  EXPECT_EQ(ShiftMonth(At(2026, 1, 31), 1, kEnglish), (Month{2026, 2}));
  EXPECT_EQ(ShiftMonth(At(2026, 1, 31), -1, kEnglish), (Month{2025, 12}));
  EXPECT_EQ(ShiftMonth(At(2026, 12, 1), 1, kEnglish), (Month{2027, 1}));
  // The zone decides in which month a night lies, the locale in which year.
  EXPECT_EQ(ShiftMonth(At(2026, 6, 30, 23), 0, {"en_US", "Europe/Berlin"}), (Month{2026, 7}));
  EXPECT_EQ(ShiftMonth(At(2026, 11, 15), 2, {"th_TH", "UTC"}), (Month{2570, 1}));
}

// The day is picked in a Gregorian calendar; the table is the user's own, also in years that clocks do not
// reach.
TEST(Calendar, FindsTheMonthOfAPickedDay) {
  using Month = CalendarMonth;
  using std::chrono::year;
  EXPECT_EQ(MonthOfDay(year(2026) / 1 / 31, kEnglish), (Month{2026, 1}));
  EXPECT_EQ(MonthOfDay(year(1300) / 2 / 1, kEnglish), (Month{1300, 2}));
  EXPECT_EQ(MonthOfDay(year(9999) / 12 / 31, {"de_DE", "Pacific/Kiritimati"}), (Month{9999, 12}));
  EXPECT_EQ(MonthOfDay(year(2026) / 11 / 15, {"th_TH", "Pacific/Kiritimati"}), (Month{2569, 11}));
  // The Persian year 1405 begins on 21 March 2026.
  EXPECT_EQ(MonthOfDay(year(2026) / 3 / 20, {"fa_IR", "America/Los_Angeles"}), (Month{1404, 12}));
  EXPECT_EQ(MonthOfDay(year(2026) / 3 / 21, {"fa_IR", "America/Los_Angeles"}), (Month{1405, 1}));
}

// A chosen day begins at its first moment, which a change of clocks can move away from midnight.
TEST(Calendar, FindsTheStartOfADay) {
  using std::chrono::system_clock;
  EXPECT_EQ(StartOfDay(2026, 11, 15, {"en_US", "Europe/Berlin"}), At(2026, 11, 14, 23));
  EXPECT_EQ(StartOfDay(2018, 11, 4, {"pt_BR", "America/Sao_Paulo"}), At(2018, 11, 4, 3));
  EXPECT_EQ(StartOfDay(INT64_MAX, 1, 1, kEnglish), system_clock::time_point::max());
}

}  // namespace
}  // namespace quill::tools
