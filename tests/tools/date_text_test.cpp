#include "tools/date_text.h"

#include <gtest/gtest.h>

namespace quill::tools {
namespace {

using std::chrono::system_clock;

constexpr std::chrono::sys_seconds At(int year, unsigned month, unsigned day, int hour = 12) {
  return std::chrono::sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(hour);
}

// Patterns are the user's: locale, zone and ICU's letters decide, and a bad one must not break anything.
TEST(DateText, FormatsUserPatterns) {
  const DateStyle german{"de_DE", "Europe/Berlin"};
  const DateStyle english{"en_US", "UTC"};
  EXPECT_EQ(FormatDate("yyyy-MM-dd HH:mm:ss", At(2026, 11, 15), german), "2026-11-15 13:00:00");
  EXPECT_EQ(FormatDate("EEEE, d. MMMM", At(2026, 3, 1), german), "Sonntag, 1. März");
  EXPECT_EQ(FormatDate("YYYY", At(2024, 12, 30), german), "2025");
  EXPECT_EQ(FormatDate("", At(2024, 12, 30), english), "");
  EXPECT_EQ(FormatDate("'open", At(2024, 12, 30), english), "open");
  EXPECT_EQ(GetDateTimeStr(DateTimeKind::DateAndTime, "yyyy", "HH", At(2026, 1, 2, 3), english), "2026 03");
  EXPECT_EQ(GetDateTimeStr(static_cast<DateTimeKind>(7), "yyyy", "HH", At(2026, 1, 2, 3), english), "");
}

// The journal title is text around one bracketed pattern.
TEST(DateText, JournalTitles) {
  const DateStyle english{"en_US", "UTC"};
  const auto moment = At(2026, 11, 5);
  EXPECT_EQ(JournalTitle("[dd]", moment, english), "05");
  EXPECT_EQ(JournalTitle("Journal [yyyy-MM-dd] notes]", moment, english), "Journal 2026-11-05 notes]");
  EXPECT_EQ(JournalTitle("no date", moment, english), "");
  EXPECT_EQ(JournalTitle("open [dd", moment, english), "");
}

}  // namespace
}  // namespace quill::tools
