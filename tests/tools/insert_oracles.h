#pragma once
#include <span>
#include <string>
#include <string_view>

#include "tools/calendar.h"
#include "tools/image_table.h"

/// The rules of what is inserted and of recognised text read word by word: one step after the other, one
/// UTF-16 unit after the other, slow and obvious. The fast code must not differ from them on any input.
namespace quill::oracle {

/// Days by ICU's own calendar, text by the formats.
std::string CreateCalendar(int year, int month, tools::WeekStart weekStart, const tools::DateStyle& style);
std::string CreateCalendarAnnual(int year, tools::WeekStart weekStart, const tools::DateStyle& style);

std::string FillDatePlaceholders(std::string html, std::chrono::system_clock::time_point moment,
                                 const tools::DateStyle& style);

std::string ClearExtraSpaces(std::string_view text);
std::string MergeAsParagraph(std::string_view text);

std::string ImageTable(std::span<const tools::ImageEntry> entries, bool isHorizontal, bool hasNames);

}  // namespace quill::oracle
