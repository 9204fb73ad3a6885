#include "tools/date_text.h"

#include <fmt/format.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <memory>

namespace quill::tools {

std::string FormatDate(std::string_view pattern, std::chrono::system_clock::time_point moment,
                       const DateStyle& style) {
  if (pattern.empty()) return {};
  const icu::Locale locale =
      style.locale.empty() ? icu::Locale::getDefault() : icu::Locale(style.locale.c_str());
  UErrorCode status = U_ZERO_ERROR;
  icu::SimpleDateFormat format(
      icu::UnicodeString::fromUTF8({pattern.data(), static_cast<int32_t>(pattern.size())}), locale, status);
  if (U_FAILURE(status)) return {};
  if (!style.zone.empty()) {
    format.adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(style.zone)));
  }
  const std::chrono::duration<double, std::milli> sinceEpoch = moment.time_since_epoch();
  icu::UnicodeString text;
  format.format(sinceEpoch.count(), text);
  std::string result;
  return text.toUTF8String(result);
}

std::string GetDateTimeStr(DateTimeKind kind, std::string_view datePattern, std::string_view timePattern,
                           std::chrono::system_clock::time_point moment, const DateStyle& style) {
  switch (kind) {
    case DateTimeKind::DateAndTime:
      return FormatDate(fmt::format("{} {}", datePattern, timePattern), moment, style);
    case DateTimeKind::Date:
      return FormatDate(datePattern, moment, style);
    case DateTimeKind::Time:
      return FormatDate(timePattern, moment, style);
  }
  return {};
}

std::string JournalTitle(std::string_view pattern, std::chrono::system_clock::time_point moment,
                         const DateStyle& style) {
  const std::size_t open = pattern.find('[');
  if (open == std::string_view::npos) return {};
  const std::size_t close = pattern.find(']', open);
  if (close == std::string_view::npos) return {};
  const std::string date = FormatDate(pattern.substr(open + 1, close - open - 1), moment, style);
  return fmt::format("{}{}{}", pattern.substr(0, open), date, pattern.substr(close + 1));
}

}  // namespace quill::tools
