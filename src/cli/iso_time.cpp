#include "cli/iso_time.h"

#include <fmt/format.h>

#include <ctime>
#include <optional>

namespace quill::cli {
namespace {

/// Takes fixed-width numbers and separators off the front of a text.
class Reader {
 public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  std::optional<int> Digits(std::size_t count, int least, int most) {
    if (m_rest.size() < count) return std::nullopt;
    int value = 0;
    for (const char c : m_rest.substr(0, count)) {
      if (c < '0' || c > '9') return std::nullopt;
      value = value * 10 + (c - '0');
    }
    if (value < least || value > most) return std::nullopt;
    m_rest.remove_prefix(count);
    return value;
  }

  bool Take(char c) {
    if (!m_rest.starts_with(c)) return false;
    m_rest.remove_prefix(1);
    return true;
  }

  bool atEnd() const { return m_rest.empty(); }

 private:
  std::string_view m_rest;
};

struct Parts {
  std::tm local{};
  std::optional<std::chrono::minutes> offset;
};

bool ReadDate(Reader& reader, std::tm& tm) {
  const auto year = reader.Digits(4, 1, 9999);
  if (!year || !reader.Take('-')) return false;
  const auto month = reader.Digits(2, 1, 12);
  if (!month || !reader.Take('-')) return false;
  const auto day = reader.Digits(2, 1, 31);
  if (!day) return false;
  using namespace std::chrono;
  if (!year_month_day(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                      std::chrono::day(static_cast<unsigned>(*day)))
           .ok()) {
    return false;
  }
  tm.tm_year = *year - 1900;
  tm.tm_mon = *month - 1;
  tm.tm_mday = *day;
  return true;
}

bool ReadTime(Reader& reader, std::tm& tm) {
  const auto hour = reader.Digits(2, 0, 23);
  if (!hour || !reader.Take(':')) return false;
  const auto minute = reader.Digits(2, 0, 59);
  if (!minute) return false;
  tm.tm_hour = *hour;
  tm.tm_min = *minute;
  if (!reader.Take(':')) return true;
  const auto second = reader.Digits(2, 0, 59);
  if (!second) return false;
  tm.tm_sec = *second;
  return true;
}

bool ReadZone(Reader& reader, std::optional<std::chrono::minutes>& offset) {
  if (reader.atEnd()) return true;
  if (reader.Take('Z')) {
    offset = std::chrono::minutes(0);
    return reader.atEnd();
  }
  const int sign = reader.Take('+') ? 1 : reader.Take('-') ? -1 : 0;
  if (sign == 0) return false;
  const auto hours = reader.Digits(2, 0, 14);
  if (!hours || !reader.Take(':')) return false;
  const auto minutes = reader.Digits(2, 0, 59);
  if (!minutes) return false;
  offset = sign * (std::chrono::hours(*hours) + std::chrono::minutes(*minutes));
  return reader.atEnd();
}

std::optional<Parts> ReadParts(std::string_view text) {
  Reader reader(text);
  Parts parts;
  if (!ReadDate(reader, parts.local)) return std::nullopt;
  if (reader.atEnd()) return parts;
  if (!reader.Take('T') && !reader.Take(' ')) return std::nullopt;
  if (!ReadTime(reader, parts.local) || !ReadZone(reader, parts.offset)) return std::nullopt;
  return parts;
}

}  // namespace

Result<std::chrono::system_clock::time_point> ParseIsoTime(std::string_view text) {
  std::optional<Parts> parts = ReadParts(text);
  if (!parts) {
    return Failure{
        fmt::format("\"{}\" is not a moment like 2026-11-15 or 2026-11-15T08:30:00Z", text.substr(0, 60))};
  }
  parts->local.tm_isdst = -1;
  const std::time_t seconds = parts->offset ? ::timegm(&parts->local) : std::mktime(&parts->local);
  return std::chrono::system_clock::from_time_t(seconds) - parts->offset.value_or(std::chrono::minutes(0));
}

}  // namespace quill::cli
