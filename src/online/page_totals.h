#pragma once
#include <cstdint>
#include <string>

namespace quill::online {

/// How many pages the user's notebooks have, as they were counted in this run. Moments are whole seconds
/// since 1970; 0: never.
struct PageTotals {
  std::int64_t current = 0;
  std::int64_t previous = 0;   ///< `current`, as it was when it was last compared
  std::string userId;          ///< whose pages these are
  std::int64_t askedAt = 0;    ///< when the last count was asked for
  std::int64_t countedAt = 0;  ///< when one last came
  std::int64_t failedAt = 0;   ///< when one last failed
  bool isWanted = false;       ///< somebody waits for the next count

  /// A count was asked for and its end is not known.
  bool IsUnderWay() const { return isWanted || (askedAt > countedAt && askedAt > failedAt); }
};

/// Two counts, the second of which is alarmingly smaller.
struct LostPages {
  std::int64_t before = 0;
  std::int64_t now = 0;

  bool operator==(const LostPages&) const = default;
};

}  // namespace quill::online
