#pragma once
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quill {

/// A calendar day as the settings file and the backups' folders keep it ("yyyyMMdd"); nothing when the stored
/// text is no such day.
using StoredDate = std::optional<std::chrono::year_month_day>;

/// The day in a stored text: eight ASCII digits that name a day of the Gregorian calendar, nothing else.
StoredDate ParseStoredDate(std::string_view text);

/// The stored text of a day; "" for no date.
std::string StoredDateText(StoredDate date);

/// The calendar day of a moment in the local time zone.
std::chrono::year_month_day LocalDay(std::chrono::system_clock::time_point moment);

}  // namespace quill
