#include "tools/calendar.h"

#include <fmt/format.h>
#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/gregocal.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "tools/icu_date_style.h"

namespace quill::tools {
namespace {

constexpr std::string_view kNextRow = "</tr><tr>";
// A row of cells to write into, with the row change on both sides.
constexpr std::string_view kWritingRow =
    "</tr><tr>"
    "<td><p>&#160;</p><p>&#160;</p></td><td><p>&#160;</p><p>&#160;</p></td>"
    "<td><p>&#160;</p><p>&#160;</p></td><td><p>&#160;</p><p>&#160;</p></td>"
    "<td><p>&#160;</p><p>&#160;</p></td><td><p>&#160;</p><p>&#160;</p></td>"
    "<td><p>&#160;</p><p>&#160;</p></td>";
constexpr std::size_t kMonthSize = 4'000;

// ICU counts days in 32 bits; nobody makes calendars beyond.
constexpr std::int64_t kLastYear = 5'000'000;
constexpr std::int64_t kLastMonth = 1'000'000;
// Months of the Gregorian calendar from here on need no look at the days that were left out in 1582.
constexpr std::int64_t kFirstPlainYear = 1583;
constexpr std::int64_t kLastPlainYear = 9999;

/// Where the days of a month lie.
struct MonthShape {
  int firstWeekday;  ///< 0 is Sunday
  int days;
};

MonthShape PlainShape(std::int64_t year, std::int64_t month) {
  const auto first = std::chrono::year(static_cast<int>(year)) / static_cast<int>(month) / 1;
  const std::chrono::year_month_day_last last = first.year() / first.month() / std::chrono::last;
  return {static_cast<int>(std::chrono::weekday(std::chrono::sys_days(first)).c_encoding()),
          static_cast<int>(static_cast<unsigned>(last.day()))};
}

void SetFirstOfMonth(icu::Calendar& calendar, std::int64_t year, std::int64_t month) {
  calendar.clear();
  calendar.set(static_cast<int32_t>(std::clamp(year, -kLastYear, kLastYear)),
               static_cast<int32_t>(std::clamp(month, -kLastMonth, kLastMonth) - 1), 1);
}

std::unique_ptr<icu::Calendar> CalendarOf(const DateStyle& style) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(ZoneOf(style).release(), LocaleOf(style), status));
  if (U_FAILURE(status)) calendar.reset();
  return calendar;
}

/// The rows of weekday names and the arithmetic that the months of one call share.
class MonthTables {
 public:
  MonthTables(WeekStart weekStart, const DateStyle& style)
      : m_weekStart(weekStart), m_calendar(CalendarOf(style)) {
    m_isGregorian = m_calendar == nullptr || std::strcmp(m_calendar->getType(), "gregorian") == 0;
    const icu::Locale locale = LocaleOf(style);
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(locale, status);
    int32_t count = 0;
    const icu::UnicodeString* names = U_SUCCESS(status) ? symbols.getShortWeekdays(count) : nullptr;
    m_header = "<tr>";
    for (int column = 0; column < 7; ++column) {
      const int day = weekStart == WeekStart::Monday ? (column + 1) % 7 : column;
      // The names stand at 1 (Sunday) to 7.
      const std::string name = day + 1 < count ? Utf8Of(names[day + 1]) : std::string();
      fmt::format_to(std::back_inserter(m_header), " <th style=\"background-color:#acc8cc;\">{}</th>", name);
    }
    m_header += "</tr>";
  }

  void Append(std::string& out, std::int64_t year, std::int64_t month) {
    const MonthShape shape = ShapeOf(year, month);
    const int offset = m_weekStart == WeekStart::Monday ? (shape.firstWeekday + 6) % 7 : shape.firstWeekday;
    const int cells = offset + shape.days > 35 ? 42 : 35;
    const auto end = std::back_inserter(out);
    fmt::format_to(end, "<h2>{} - {}</h2><table border=\"1\">{}<tr>", year, month, m_header);
    for (int i = 0; i < cells; ++i) {
      if (i > 0 && i % 7 == 0) out.append(kWritingRow).append(kNextRow);
      if (i < offset || i >= offset + shape.days) {
        out += "<td><p><b></b></p></td>";
      } else {
        fmt::format_to(end, "<td><p><b>{}</b></p></td>", i - offset + 1);
      }
    }
    out.append(kWritingRow).append("</tr></table>");
  }

 private:
  MonthShape ShapeOf(std::int64_t year, std::int64_t month) {
    const bool isPlain =
        year >= kFirstPlainYear && year <= kLastPlainYear && month >= 1 && month <= 12 && m_isGregorian;
    if (isPlain || m_calendar == nullptr) {
      return PlainShape(std::clamp(year, kFirstPlainYear, kLastPlainYear),
                        std::clamp<std::int64_t>(month, 1, 12));
    }
    SetFirstOfMonth(*m_calendar, year, month);
    UErrorCode status = U_ZERO_ERROR;
    const int weekday = m_calendar->get(UCAL_DAY_OF_WEEK, status);
    const int days = m_calendar->getActualMaximum(UCAL_DAY_OF_MONTH, status);
    return {weekday - UCAL_SUNDAY, days};
  }

  WeekStart m_weekStart;
  std::unique_ptr<icu::Calendar> m_calendar;
  bool m_isGregorian;
  std::string m_header;
};

}  // namespace

std::string CreateCalendar(std::int64_t year, std::int64_t month, WeekStart weekStart,
                           const DateStyle& style) {
  std::string html;
  html.reserve(kMonthSize);
  MonthTables(weekStart, style).Append(html, year, month);
  return html;
}

std::string CreateCalendarAnnual(std::int64_t year, WeekStart weekStart, const DateStyle& style) {
  std::string html;
  html.reserve(12 * kMonthSize);
  MonthTables tables(weekStart, style);
  for (int month = 1; month <= 12; ++month) {
    html += '\n';
    tables.Append(html, year, month);
  }
  return html;
}

CalendarMonth MonthOfDay(const std::chrono::year_month_day& day, const DateStyle& style) {
  const CalendarMonth gregorian{int{day.year()}, unsigned{day.month()}};
  const std::unique_ptr<icu::Calendar> calendar = CalendarOf(style);
  if (calendar == nullptr || std::strcmp(calendar->getType(), "gregorian") == 0) return gregorian;
  UErrorCode status = U_ZERO_ERROR;
  icu::GregorianCalendar noon(int{day.year()}, static_cast<int32_t>(unsigned{day.month()}) - 1,
                              static_cast<int32_t>(unsigned{day.day()}), 12, 0, status);
  noon.setTimeZone(calendar->getTimeZone());
  calendar->setTime(noon.getTime(status), status);
  const CalendarMonth month{calendar->get(UCAL_YEAR, status), calendar->get(UCAL_MONTH, status) + 1};
  return U_SUCCESS(status) ? month : gregorian;
}

CalendarMonth ShiftMonth(std::chrono::system_clock::time_point moment, int delta, const DateStyle& style) {
  const std::unique_ptr<icu::Calendar> calendar = CalendarOf(style);
  if (calendar == nullptr) return {};
  UErrorCode status = U_ZERO_ERROR;
  calendar->setTime(IcuDate(moment), status);
  const std::int64_t month = std::int64_t{calendar->get(UCAL_MONTH, status)} + 1 + delta;
  SetFirstOfMonth(*calendar, calendar->get(UCAL_YEAR, status), month);
  const int32_t shiftedYear = calendar->get(UCAL_YEAR, status);
  return {shiftedYear, calendar->get(UCAL_MONTH, status) + 1};
}

std::chrono::system_clock::time_point StartOfDay(std::int64_t year, std::int64_t month, std::int64_t day,
                                                 const DateStyle& style) {
  const std::unique_ptr<icu::Calendar> calendar = CalendarOf(style);
  if (calendar == nullptr) return {};
  SetFirstOfMonth(*calendar, year, month);
  calendar->set(UCAL_DATE, static_cast<int32_t>(std::clamp(day, -kLastMonth, kLastMonth)));
  UErrorCode status = U_ZERO_ERROR;
  using Moment = std::chrono::system_clock::time_point;
  using Milliseconds = std::chrono::duration<double, std::milli>;
  // The system's clock reaches less far than ICU's.
  const Milliseconds sinceEpoch(calendar->getTime(status));
  if (sinceEpoch >= Milliseconds(Moment::max().time_since_epoch())) return Moment::max();
  if (sinceEpoch <= Milliseconds(Moment::min().time_since_epoch())) return Moment::min();
  return Moment(std::chrono::duration_cast<Moment::duration>(sinceEpoch));
}

}  // namespace quill::tools
