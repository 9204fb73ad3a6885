#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quill::online {

// The history of the number of pages: a text file with a line "[YYYY-MM-dd HH:mm:ss] N" for each change. The
// year is that of the week, which around New Year may be another than that of the day. Pure; any thread.

/// One line of the history.
struct PageHistoryEntry {
  std::chrono::local_seconds at;  ///< the moment on the writer's clock, in the year of the day
  std::string time;               ///< as it is written
  std::int64_t total = 0;
  std::optional<std::int64_t> change;  ///< since the entry before
  bool isDrop = false;                 ///< more pages are gone than is tolerated
};

/// Whether more than `tolerated` pages are gone.
bool IsPageDrop(std::int64_t before, std::int64_t now, std::int64_t tolerated);

/// A line of the file, without a line break.
std::string PageHistoryLine(std::string_view time, std::int64_t total);

/// Reads the file's text; lines that are none of the history's are left out. The year of a day near New Year
/// is the latest one that its line may mean and that is not after the next line, or after `now`. O(text).
std::vector<PageHistoryEntry> ParsePageHistory(std::string_view text, std::int64_t tolerated,
                                               std::chrono::local_seconds now);

/// The pages at the end of a day.
struct DayPages {
  std::chrono::local_days day;
  std::int64_t total = 0;
  std::optional<std::int64_t> change;  ///< since the end of the day before; nothing when that is not known
};

/// The last `count` days up to `today`, which comes first, as far back as the history goes. Days without an
/// entry have the total of the day before. O(entries).
std::vector<DayPages> PagesByDay(const std::vector<PageHistoryEntry>& history, std::chrono::local_days today,
                                 int count);

}  // namespace quill::online
