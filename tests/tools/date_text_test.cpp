#include "tools/date_text.h"

#include <gtest/gtest.h>

#include <random>

#include "tools/date_pattern.h"
#include "tools/insert_oracles.h"

namespace quill::tools {
namespace {

using std::chrono::system_clock;

constexpr std::chrono::sys_seconds At(int year, unsigned month, unsigned day, int hour = 12) {
  return std::chrono::sys_days(std::chrono::year(year) / month / day) + std::chrono::hours(hour);
}

// Patterns are the user's: locale, zone and ICU's letters decide, and a bad one must not break anything.
TEST(DateText, FormatsUserPatterns) {
  const DateStyle german{"de_DE", "Europe/Berlin"};
  const DateStyle english{"en_US", "UTC"};
  EXPECT_EQ(FormatDate("yyyy-MM-dd HH:mm:ss", At(2026, 11, 15), german), "2026-11-15 13:00:00");
  EXPECT_EQ(FormatDate("EEEE, d. MMMM", At(2026, 3, 1), german), "Sonntag, 1. März");
  EXPECT_EQ(FormatDate("YYYY", At(2024, 12, 30), german), "2025");
  EXPECT_EQ(FormatDate("", At(2024, 12, 30), english), "");
  EXPECT_EQ(FormatDate("'open", At(2024, 12, 30), english), "open");
  EXPECT_EQ(GetDateTimeStr(DateTimeKind::DateAndTime, "yyyy", "HH", At(2026, 1, 2, 3), english), "2026 03");
  EXPECT_EQ(GetDateTimeStr(static_cast<DateTimeKind>(7), "yyyy", "HH", At(2026, 1, 2, 3), english), "");
}

// The journal title is text around one bracketed pattern.
TEST(DateText, JournalTitles) {
  const DateStyle english{"en_US", "UTC"};
  const auto moment = At(2026, 11, 5);
  EXPECT_EQ(JournalTitle("[dd]", moment, english), "05");
  EXPECT_EQ(JournalTitle("Journal [yyyy-MM-dd] notes]", moment, english), "Journal 2026-11-05 notes]");
  EXPECT_EQ(JournalTitle("no date", moment, english), "");
  EXPECT_EQ(JournalTitle("open [dd", moment, english), "");
}

// A template filled wrongly is pasted into the page before anybody sees it.
TEST(DateText, FillsTheEscapedPlaceholdersOfTemplates) {
  const DateStyle german{"de_DE", "Europe/Berlin"};
  const auto moment = At(2026, 3, 5);
  EXPECT_EQ(FillDatePlaceholders("<p>&lt;&lt;DateTime&gt;&gt; &lt;&lt;MonthName&gt;&gt;</p>", moment, german),
            "<p>2026-03-05 13:00:00 März</p>");
  EXPECT_EQ(FillDatePlaceholders("&lt;&lt;UTCDateTime&gt;&gt;|&lt;&lt;TimeZone&gt;&gt;", moment, german),
            "Mitteleuropäische Normalzeit|MEZ");
  EXPECT_EQ(FillDatePlaceholders("<<Date>> &lt;&lt;date&gt;&gt;", moment, german),
            "<<Date>> &lt;&lt;date&gt;&gt;");

  constexpr std::string_view kPieces[] = {"&lt;",
                                          "&lt;&lt;",
                                          "&gt;",
                                          "&gt;&gt;",
                                          "Date",
                                          "DateTime",
                                          "Year",
                                          "Month",
                                          "MonthName",
                                          "TimeZone",
                                          "x",
                                          "&lt",
                                          "&lt;&lt;Date&gt;&gt;",
                                          "UTCDateTime",
                                          "&",
                                          ";"};
  std::mt19937 random(11);
  for (int i = 0; i < 3'000; ++i) {
    std::string html;
    for (std::size_t n = random() % 14; n-- > 0;) html += kPieces[random() % std::size(kPieces)];
    ASSERT_EQ(FillDatePlaceholders(html, moment, german), oracle::FillDatePlaceholders(html, moment, german))
        << html;
  }
}

// A pattern that does not mean what was typed is told while it is typed, never refused.
TEST(DatePattern, TellsWhatIsOddAndShowsTheResult) {
  const DateStyle english{"en_US", "UTC"};
  const auto check = [&](std::string_view pattern) {
    return CheckDatePattern(pattern, At(2026, 11, 5), english);
  };
  EXPECT_EQ(check("h 'o''clock' a").problem, PatternProblem::None);
  EXPECT_EQ(check("h 'o''clock' a").text, "12 o'clock PM");
  EXPECT_EQ(check("").problem, PatternProblem::Empty);
  EXPECT_EQ(check("yyyy-n").problem, PatternProblem::UnknownLetter);
  EXPECT_EQ(check("yyyy-n").position, 5u);
  EXPECT_EQ(check("yyyy-n").text, "2026-");
  EXPECT_EQ(check("yyyy 'now").problem, PatternProblem::OpenQuote);
  EXPECT_EQ(check("yyyy 'now").position, 5u);
  EXPECT_EQ(check("yyyy 'now").text, "2026 now");
  EXPECT_EQ(check("XXXXXX").problem, PatternProblem::NothingWritten);
}

// The list of letters is the library's, whose next version may know more; and what the help offers works.
TEST(DatePattern, KnowsTheLettersThatTheLibraryKnows) {
  const DateStyle english{"en_US", "UTC"};
  for (char c = 'A'; c <= 'z'; c = c == 'Z' ? 'a' : static_cast<char>(c + 1)) {
    // Behind a letter that means nothing the text ends.
    const bool isKnown = FormatDate(std::string(1, c) + "'|'", At(2026, 11, 5), english).ends_with('|');
    const PatternProblem problem = CheckDatePattern(std::string(1, c), At(2026, 11, 5), english).problem;
    EXPECT_EQ(problem != PatternProblem::UnknownLetter, isKnown) << c;
  }
  for (const auto letters : {DatePatternLetters(), TimePatternLetters()}) {
    for (const PatternLetter& row : letters) {
      EXPECT_EQ(CheckDatePattern(row.letters, At(2026, 11, 5), english).problem, PatternProblem::None)
          << row.letters;
    }
  }
}

}  // namespace
}  // namespace quill::tools
