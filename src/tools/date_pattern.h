#pragma once
#include <chrono>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "tools/date_text.h"

namespace quill::tools {

/// What is odd about a pattern. None of it keeps the pattern from being used.
enum class PatternProblem {
  None,
  Empty,
  UnknownLetter,   ///< the text ends in front of it
  OpenQuote,       ///< a quote without an end: all behind it is plain text
  NothingWritten,  ///< known letters, but none that writes anything in this number
};

/// A date pattern as a reader sees it while typing.
struct PatternCheck {
  PatternProblem problem = PatternProblem::None;
  std::string text;          ///< what inserting would write at the moment
  std::size_t position = 0;  ///< the byte at which the unknown letter or the open quote stands
};

/// Tries a pattern on a moment. An unknown letter is told before an open quote. O(pattern).
PatternCheck CheckDatePattern(std::string_view pattern, std::chrono::system_clock::time_point moment,
                              const DateStyle& style = {});

/// A row of the help beside a pattern field: letters to type, and the string table's key of what they mean.
struct PatternLetter {
  std::string_view letters;
  std::string_view textKey;
};

/// The usual letters of dates and of times, in reading order; both end with the two quoting rules.
std::span<const PatternLetter> DatePatternLetters();
std::span<const PatternLetter> TimePatternLetters();

}  // namespace quill::tools
