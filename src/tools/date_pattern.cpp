#include "tools/date_pattern.h"

#include <optional>

namespace quill::tools {
namespace {

// The letters that ICU formats. "l" writes nothing, as UTS #35 has it.
constexpr std::string_view kKnownLetters = "GyMdkHmsSEDFwWahKzYeugAZvcLQqVUOXxrbBl";

constexpr PatternLetter kDateLetters[] = {
    {"yyyy", "strPatternYear"},        {"yy", "strPatternYearShort"},   {"MMMM", "strPatternMonthName"},
    {"MMM", "strPatternMonthShort"},   {"MM", "strPatternMonthDigits"}, {"M", "strPatternMonth"},
    {"dd", "strPatternDayDigits"},     {"d", "strPatternDay"},          {"EEEE", "strPatternWeekdayName"},
    {"EEE", "strPatternWeekdayShort"}, {"D", "strPatternDayOfYear"},    {"Q", "strPatternQuarter"},
    {"w", "strPatternWeek"},           {"YYYY", "strPatternWeekYear"},  {"'…'", "strPatternQuoted"},
    {"''", "strPatternApostrophe"},
};

constexpr PatternLetter kTimeLetters[] = {
    {"HH", "strPatternHour24Digits"}, {"H", "strPatternHour24"},        {"hh", "strPatternHour12Digits"},
    {"h", "strPatternHour12"},        {"a", "strPatternHalfOfDay"},     {"mm", "strPatternMinuteDigits"},
    {"m", "strPatternMinute"},        {"ss", "strPatternSecondDigits"}, {"s", "strPatternSecond"},
    {"SSS", "strPatternMillisecond"}, {"z", "strPatternZoneShort"},     {"zzzz", "strPatternZoneName"},
    {"xxx", "strPatternZoneOffset"},  {"'…'", "strPatternQuoted"},      {"''", "strPatternApostrophe"},
};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Where a pattern goes wrong, if it does.
struct PatternFault {
  PatternProblem problem;
  std::size_t position;
};

std::optional<PatternFault> FindFault(std::string_view pattern) {
  std::optional<std::size_t> quote;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '\'') {
      // Two quotes are an apostrophe, inside quotes and outside.
      if (i + 1 < pattern.size() && pattern[i + 1] == '\'') {
        ++i;
      } else {
        quote = quote ? std::nullopt : std::optional(i);
      }
    } else if (!quote && IsLetter(pattern[i]) && kKnownLetters.find(pattern[i]) == std::string_view::npos) {
      return PatternFault{PatternProblem::UnknownLetter, i};
    }
  }
  if (quote) return PatternFault{PatternProblem::OpenQuote, *quote};
  return std::nullopt;
}

}  // namespace

PatternCheck CheckDatePattern(std::string_view pattern, std::chrono::system_clock::time_point moment,
                              const DateStyle& style) {
  PatternCheck check;
  check.text = FormatDate(pattern, moment, style);
  if (pattern.empty()) {
    check.problem = PatternProblem::Empty;
  } else if (const std::optional<PatternFault> fault = FindFault(pattern)) {
    check.problem = fault->problem;
    check.position = fault->position;
  } else if (check.text.empty()) {
    check.problem = PatternProblem::NothingWritten;
  }
  return check;
}

std::span<const PatternLetter> DatePatternLetters() {
  return kDateLetters;
}

std::span<const PatternLetter> TimePatternLetters() {
  return kTimeLetters;
}

}  // namespace quill::tools
