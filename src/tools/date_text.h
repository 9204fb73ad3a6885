#pragma once
#include <chrono>
#include <string>
#include <string_view>

namespace quill::tools {

/// Where and how dates are written. Empty texts mean the system's own locale and time zone.
struct DateStyle {
  std::string locale;  ///< ICU locale identifier, such as "de_DE"
  std::string zone;    ///< IANA time zone, such as "Europe/Berlin"
};

/// A moment in a Unicode date pattern (UTS #35). An empty pattern yields an empty text. A letter that means
/// nothing ends the text in front of it; `CheckDatePattern` (date_pattern.h) tells which one it was.
std::string FormatDate(std::string_view pattern, std::chrono::system_clock::time_point moment,
                       const DateStyle& style = {});

/// What `GetDateTimeStr` writes.
enum class DateTimeKind { DateAndTime = 0, Date = 1, Time = 2 };

/// The moment in the date pattern, the time pattern, or both joined by one blank as one pattern.
/// Another kind yields an empty text.
std::string GetDateTimeStr(DateTimeKind kind, std::string_view datePattern, std::string_view timePattern,
                           std::chrono::system_clock::time_point moment, const DateStyle& style = {});

/// The title of a journal page: the text before the first "[", the moment in the pattern up to the next
/// "]", the text after it. A pattern without "[", or without a "]" after it, yields an empty title.
std::string JournalTitle(std::string_view pattern, std::chrono::system_clock::time_point moment,
                         const DateStyle& style = {});

/// A template's HTML with its date placeholders filled, fixed patterns whatever the user's are:
/// "&lt;&lt;Date&gt;&gt;" (yyyy-MM-dd), "…DateTime…" (yyyy-MM-dd HH:mm:ss), "…Year…", "…Month…" (two
/// digits), "…MonthName…" (short), "…TimeZone…" (short) and "…UTCDateTime…", which is the long name of the
/// time zone. Only the escaped form counts; other names stay. O(html).
std::string FillDatePlaceholders(std::string_view html, std::chrono::system_clock::time_point moment,
                                 const DateStyle& style = {});

}  // namespace quill::tools
