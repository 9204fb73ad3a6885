#include "cli/iso_time.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace quill::cli {
namespace {

std::int64_t Seconds(std::string_view text) {
  const auto moment = ParseIsoTime(text);
  return moment.ok() ? std::chrono::system_clock::to_time_t(*moment) : -1;
}

// Dates in documents are pinned with --now, so a wrong zone or a lenient date would pin the wrong day.
TEST(IsoTime, ReadsMomentsAndRefusesTheRest) {
  ::setenv("TZ", "Asia/Tokyo", 1);
  ::tzset();
  EXPECT_EQ(Seconds("1970-01-02T00:00:00Z"), 86400);
  EXPECT_EQ(Seconds("1970-01-02T01:30+01:30"), 86400);
  EXPECT_EQ(Seconds("1970-01-01 23:00:00-01:00"), 86400);
  EXPECT_EQ(Seconds("1970-01-02"), 86400 - 9 * 3600);
  EXPECT_EQ(Seconds("2024-02-29T12:00:00Z"), 1709208000);
  for (const char* wrong :
       {"", "2026", "2026-02-30", "2026-13-01", "2026-01-01T25:00", "2026-01-01T10", "2026-01-01T10:00x",
        "2026-01-01Z", "99999-01-01", "2026-1-1", "2026-01-01T10:00:00+15:00"}) {
    EXPECT_FALSE(ParseIsoTime(wrong).ok()) << wrong;
  }
}

}  // namespace
}  // namespace quill::cli
