#include "base/stored_date.h"

#include <fmt/format.h>

#include <charconv>
#include <ctime>

namespace quill {

StoredDate ParseStoredDate(std::string_view text) {
  if (text.size() != 8 || text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  unsigned number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  const std::chrono::year_month_day day{std::chrono::year(static_cast<int>(number / 10000)),
                                        std::chrono::month(number / 100 % 100),
                                        std::chrono::day(number % 100)};
  if (!day.ok() || number < 10000) return std::nullopt;
  return day;
}

std::string StoredDateText(StoredDate date) {
  if (!date) return {};
  return fmt::format("{:04}{:02}{:02}", static_cast<int>(date->year()), static_cast<unsigned>(date->month()),
                     static_cast<unsigned>(date->day()));
}

std::chrono::year_month_day LocalDay(std::chrono::system_clock::time_point moment) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
  std::tm local{};
  ::localtime_r(&seconds, &local);
  return {std::chrono::year(local.tm_year + 1900),
          std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
          std::chrono::day(static_cast<unsigned>(local.tm_mday))};
}

}  // namespace quill
