#include "tools/date_text.h"

#include <fmt/format.h>
#include <unicode/smpdtfmt.h>

#include "content/find_text.h"
#include "tools/icu_date_style.h"

namespace quill::tools {
namespace {

/// What a template may hold behind "&lt;&lt;", and what takes its place.
struct Placeholder {
  std::string_view name;
  std::string_view pattern;
};

// No pattern writes a "&", so that filling one placeholder never makes another.
constexpr Placeholder kPlaceholders[] = {
    {"Date&gt;&gt;", "yyyy-MM-dd"},  {"DateTime&gt;&gt;", "yyyy-MM-dd HH:mm:ss"},
    {"Year&gt;&gt;", "yyyy"},        {"Month&gt;&gt;", "MM"},
    {"MonthName&gt;&gt;", "MMM"},    {"TimeZone&gt;&gt;", "z"},
    {"UTCDateTime&gt;&gt;", "zzzz"},
};

const Placeholder* PlaceholderAt(std::string_view html) {
  for (const Placeholder& placeholder : kPlaceholders) {
    if (html.starts_with(placeholder.name)) return &placeholder;
  }
  return nullptr;
}

}  // namespace

std::string FormatDate(std::string_view pattern, std::chrono::system_clock::time_point moment,
                       const DateStyle& style) {
  if (pattern.empty()) return {};
  UErrorCode status = U_ZERO_ERROR;
  icu::SimpleDateFormat format(UnicodeOf(pattern), LocaleOf(style), status);
  if (U_FAILURE(status)) return {};
  format.adoptTimeZone(ZoneOf(style).release());
  icu::UnicodeString text;
  format.format(IcuDate(moment), text);
  return Utf8Of(text);
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

std::string FillDatePlaceholders(std::string_view html, std::chrono::system_clock::time_point moment,
                                 const DateStyle& style) {
  constexpr std::string_view kOpen = "&lt;&lt;";
  std::string filled;
  std::size_t copied = 0;
  for (std::size_t at = 0; (at = content::FindText(html, kOpen, at)) != std::string_view::npos;) {
    const Placeholder* placeholder = PlaceholderAt(html.substr(at + kOpen.size()));
    if (placeholder == nullptr) {
      // Only past the first "&lt;": of three in a row the last two may open a placeholder.
      at += kOpen.size() / 2;
      continue;
    }
    filled.append(html.substr(copied, at - copied)).append(FormatDate(placeholder->pattern, moment, style));
    copied = at += kOpen.size() + placeholder->name.size();
  }
  return filled.append(html.substr(copied));
}

}  // namespace quill::tools
