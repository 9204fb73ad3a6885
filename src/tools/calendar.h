#pragma once
#include <chrono>
#include <cstdint>
#include <string>

#include "tools/date_text.h"

namespace quill::tools {

/// The day that the weeks of a calendar begin with.
enum class WeekStart { Sunday, Monday };

/// The table of one month as HTML: a heading "year - month", a row of short weekday names, and for each
/// week a row of day numbers and a row of tall empty cells to write into.
///
/// Year and month are the locale's own calendar's; its language names the weekdays. A month outside the
/// year counts on into the years around it, while the heading says what was asked for. O(1).
std::string CreateCalendar(std::int64_t year, std::int64_t month, WeekStart weekStart,
                           const DateStyle& style = {});

/// The months 1 to 12, a line feed before each.
std::string CreateCalendarAnnual(std::int64_t year, WeekStart weekStart, const DateStyle& style = {});

/// A month of the locale's calendar; the first is 1.
struct CalendarMonth {
  std::int64_t year = 0;
  std::int64_t month = 1;
  bool operator==(const CalendarMonth&) const = default;
};

/// The month of the locale's calendar in which a Gregorian day lies.
CalendarMonth MonthOfDay(const std::chrono::year_month_day& day, const DateStyle& style = {});

/// The month `delta` months after the moment's, in the style's zone. Counts from the first of the month:
/// one month after 31 January is February.
CalendarMonth ShiftMonth(std::chrono::system_clock::time_point moment, int delta,
                         const DateStyle& style = {});

/// The moment at which a day of the locale's calendar begins in the style's zone, which is not midnight
/// where the clocks were put forward then.
std::chrono::system_clock::time_point StartOfDay(std::int64_t year, std::int64_t month, std::int64_t day,
                                                 const DateStyle& style = {});

}  // namespace quill::tools
