#include "online/page_history.h"

#include <gmock/gmock.h>

namespace quill::online {
namespace {

using std::chrono::local_days;
using std::chrono::local_seconds;
using testing::ElementsAre;
using testing::IsEmpty;

local_days Day(int year, unsigned month, unsigned day) {
  return local_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day));
}

std::vector<PageHistoryEntry> Parse(std::string_view text) {
  return ParsePageHistory(text, 5, Day(2026, 11, 1));
}

// Whatever is in the file, its good lines are shown and the others cost nothing.
TEST(PageHistory, ReadsWhatIsALine) {
  const auto history = Parse(
      "[2026-01-20 09:05:00] 100\r\n\n[2026-01-20 10:05:01] 95\nnonsense\n[2026-02-30 10:00:00] 1\n"
      "[2026-01-20 24:00:00] 1\n[2026-01-20 10:00:00] -4\n[2026-01-20 10:00:00] 1x\n[99999-01-20 10:00:00] "
      "1\n"
      "[2026-01-21 00:00:00] 99999999999999999999\n[2026-01-22 00:00:00] 89");
  ASSERT_EQ(history.size(), 3u);
  EXPECT_EQ(history[1].at, Day(2026, 1, 20) + std::chrono::hours(10) + std::chrono::seconds(301));
  EXPECT_EQ(history[1].time, "2026-01-20 10:05:01");
  EXPECT_FALSE(history[0].change);
  EXPECT_EQ(history[1].change, -5);
  EXPECT_FALSE(history[1].isDrop) << "as many as are tolerated";
  EXPECT_TRUE(history[2].isDrop) << "one more";
  for (const char* none : {"", "\n", "[", "[]", "[2026-01-20 09:05:00]", "\xFF"})
    EXPECT_THAT(Parse(none), IsEmpty());
  EXPECT_EQ(PageHistoryLine("2026-01-20 09:05:00", 7), "[2026-01-20 09:05:00] 7");
}

// The limits of a drop, also where the difference is larger than any number.
TEST(PageHistory, TellsADrop) {
  EXPECT_FALSE(IsPageDrop(10, 5, 5));
  EXPECT_TRUE(IsPageDrop(10, 4, 5));
  EXPECT_FALSE(IsPageDrop(4, 10, 0));
  EXPECT_FALSE(IsPageDrop(4, 4, -1));
  EXPECT_TRUE(IsPageDrop(INT64_MAX, INT64_MIN, INT64_MAX));
  EXPECT_FALSE(IsPageDrop(INT64_MIN, INT64_MAX, 0));
}

// The year of a line is that of its week; the chart needs that of its day.
TEST(PageHistory, FindsTheYearOfADayNearNewYear) {
  const auto days = [](std::string_view text) {
    std::vector<local_days> found;
    for (const auto& entry : Parse(text)) found.push_back(std::chrono::floor<std::chrono::days>(entry.at));
    return found;
  };
  EXPECT_THAT(days("[2024-12-29 10:00:00] 1\n[2025-12-30 10:00:00] 2\n[2025-01-02 10:00:00] 3"),
              ElementsAre(Day(2024, 12, 29), Day(2024, 12, 30), Day(2025, 1, 2)));
  EXPECT_THAT(days("[2020-12-31 10:00:00] 1\n[2020-01-03 10:00:00] 2\n[2021-01-04 10:00:00] 3"),
              ElementsAre(Day(2020, 12, 31), Day(2021, 1, 3), Day(2021, 1, 4)));
  EXPECT_THAT(days("[2026-12-30 10:00:00] 1"), ElementsAre(Day(2025, 12, 30))) << "it is not yet December";
}

// A table of days: each with the total that it ended with, also when nothing has changed.
TEST(PageHistory, TellsTheEndOfEachDay) {
  const auto history = Parse(
      "[2026-03-01 09:00:00] 100\n[2026-03-01 18:00:00] 104\n[2026-03-03 08:00:00] 90\n[2026-03-03 09:00:00] "
      "103\n");
  std::vector<std::string> rows;
  for (const DayPages& day : PagesByDay(history, Day(2026, 3, 4), 5)) {
    rows.push_back(std::to_string((day.day - Day(2026, 3, 1)).count()) + ": " + std::to_string(day.total) +
                   " " + (day.change ? std::to_string(*day.change) : "-"));
  }
  EXPECT_THAT(rows, ElementsAre("3: 103 0", "2: 103 -1", "1: 104 0", "0: 104 -"));
  const auto later = PagesByDay(history, Day(2026, 6, 1), 2);
  ASSERT_EQ(later.size(), 2u);
  EXPECT_EQ(later[1].change, 0) << "what was before the table is known";
  EXPECT_THAT(PagesByDay({}, Day(2026, 6, 1), 5), IsEmpty());
}

}  // namespace
}  // namespace quill::online
