#include "online/page_history.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "content/unicode_text.h"

namespace quill::online {
namespace {

using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::year_month_day;

/// Takes a line apart from its beginning.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : m_rest(line) {}

  bool Skip(std::string_view text) {
    if (!m_rest.starts_with(text)) return false;
    m_rest.remove_prefix(text.size());
    return true;
  }
  template <class Number>
  bool Read(Number& number) {
    const bool isDigit = !m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9';
    const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
    if (!isDigit || error != std::errc()) return false;
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return true;
  }
  bool AtEnd() const { return m_rest.empty(); }
  std::string_view rest() const { return m_rest; }

 private:
  std::string_view m_rest;
};

/// A day and time with the year that was printed.
struct PrintedTime {
  int year = 0;
  unsigned month = 0, day = 0;
  int hour = 0, minute = 0, second = 0;

  std::optional<local_seconds> In(int someYear) const {
    const year_month_day date{std::chrono::year(someYear), std::chrono::month(month), std::chrono::day(day)};
    if (!date.ok()) return std::nullopt;
    return local_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
  }
};

bool ReadTime(LineReader& line, PrintedTime& time) {
  constexpr int kLastYear = 9999;
  return line.Read(time.year) && line.Skip("-") && line.Read(time.month) && line.Skip("-") &&
         line.Read(time.day) && line.Skip(" ") && line.Read(time.hour) && line.Skip(":") &&
         line.Read(time.minute) && line.Skip(":") && line.Read(time.second) && time.year <= kLastYear &&
         time.hour < 24 && time.minute < 60 && time.second < 60;
}

struct Line {
  PrintedTime printed;
  std::string_view time;
  std::int64_t total = 0;
};

std::optional<Line> ReadLine(std::string_view text) {
  LineReader reader(text);
  if (!reader.Skip("[")) return std::nullopt;
  const std::string_view fromTime = reader.rest();
  Line line;
  if (!ReadTime(reader, line.printed)) return std::nullopt;
  line.time = fromTime.substr(0, fromTime.size() - reader.rest().size());
  if (!reader.Skip("] ") || !reader.Read(line.total) || !reader.AtEnd()) return std::nullopt;
  if (!line.printed.In(line.printed.year)) return std::nullopt;
  return line;
}

std::vector<Line> ReadLines(std::string_view text) {
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const auto line = ReadLine(content::TrimWhite(text.substr(0, end)))) lines.push_back(*line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

/// The year that a day's week belongs to, in a country where weeks begin with `first` and a year's first week
/// has so many of its days at least.
std::chrono::year WeekYear(local_days day, std::chrono::weekday first, unsigned least) {
  const local_days begin = day - (std::chrono::weekday(day) - first);
  const year_month_day from(begin), to(begin + std::chrono::days(6));
  return static_cast<unsigned>(to.day()) >= least ? to.year() : from.year();
}

/// Whether a day is printed with this year somewhere.
bool IsPrintedWith(local_days day, int year) {
  constexpr std::pair<std::chrono::weekday, unsigned> kRules[] = {{std::chrono::Monday, 4},
                                                                  {std::chrono::Sunday, 1},
                                                                  {std::chrono::Saturday, 1},
                                                                  {std::chrono::Monday, 1}};
  return std::ranges::any_of(kRules, [&](const auto& rule) {
    return WeekYear(day, rule.first, rule.second) == std::chrono::year(year);
  });
}

/// The moment that a line means: the latest one that is printed so and not after `latest`.
local_seconds MomentOf(const PrintedTime& printed, local_seconds latest) {
  for (const int year : {printed.year + 1, printed.year, printed.year - 1}) {
    const std::optional<local_seconds> at = printed.In(year);
    if (at && *at <= latest && IsPrintedWith(std::chrono::floor<std::chrono::days>(*at), printed.year))
      return *at;
  }
  return *printed.In(printed.year);
}

}  // namespace

bool IsPageDrop(std::int64_t before, std::int64_t now, std::int64_t tolerated) {
  if (before <= now) return false;
  const std::uint64_t gone = static_cast<std::uint64_t>(before) - static_cast<std::uint64_t>(now);
  return tolerated < 0 || gone > static_cast<std::uint64_t>(tolerated);
}

std::string PageHistoryLine(std::string_view time, std::int64_t total) {
  return fmt::format("[{}] {}", time, total);
}

std::vector<PageHistoryEntry> ParsePageHistory(std::string_view text, std::int64_t tolerated,
                                               local_seconds now) {
  const std::vector<Line> lines = ReadLines(text);
  std::vector<PageHistoryEntry> history(lines.size());
  local_seconds latest = now;
  for (std::size_t i = lines.size(); i-- > 0;) {
    latest = MomentOf(lines[i].printed, latest);
    history[i] = {latest, std::string(lines[i].time), lines[i].total, std::nullopt, false};
    if (i == 0) break;
    history[i].change = lines[i].total - lines[i - 1].total;
    history[i].isDrop = IsPageDrop(lines[i - 1].total, lines[i].total, tolerated);
  }
  return history;
}

std::vector<DayPages> PagesByDay(const std::vector<PageHistoryEntry>& history, local_days today, int count) {
  std::vector<DayPages> days;
  std::optional<std::int64_t> total;
  std::size_t next = 0;
  const auto takeUntil = [&](local_days day) {
    for (; next < history.size() && std::chrono::floor<std::chrono::days>(history[next].at) <= day; ++next)
      total = history[next].total;
  };
  takeUntil(today - std::chrono::days(count));
  for (int back = count - 1; back >= 0; --back) {
    const std::optional<std::int64_t> before = total;
    const local_days day = today - std::chrono::days(back);
    takeUntil(day);
    if (!total) continue;
    days.push_back({day, *total, before ? std::optional(*total - *before) : std::nullopt});
  }
  std::reverse(days.begin(), days.end());
  return days;
}

}  // namespace quill::online
