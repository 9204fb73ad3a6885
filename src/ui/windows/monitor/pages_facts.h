#pragma once
#include <QDateTime>
#include <functional>
#include <memory>
#include <vector>

#include "online/page_history.h"
#include "online/page_totals.h"

namespace quill::ui {

/// What the window of the number of pages tells.
struct PagesFacts {
  online::PageTotals pages;
  bool isWatched = true;
  bool isSignedIn = true;
  bool hasHistoryFile = false;
  std::chrono::local_seconds now{};  ///< on the clock of the place
  /// Null where the file is as it was.
  std::shared_ptr<const std::vector<online::PageHistoryEntry>> history;
};

/// What its buttons and its timer do. The answers come by `MWinPagesNumber::Update`.
struct PagesHandlers {
  std::function<void()> askFacts;
  std::function<void()> countNow;
  std::function<void()> openHistory;
};

}  // namespace quill::ui
