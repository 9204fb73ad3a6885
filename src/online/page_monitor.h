#pragma once
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "online/online_main_asyn.h"
#include "online/page_totals.h"

namespace quill::online {

/// What the settings say about watching the number of pages.
struct PageRules {
  bool isOn = true;
  std::int64_t tolerated = 0;  ///< so many pages may go between two counts
};

/// Watches the number of pages in the user's online notebooks: counts them every half hour, writes each
/// change into the history, and warns when too many are gone at once. The totals are in the session's memory.
/// Command thread.
class PageMonitor {
 public:
  struct Parts {
    Session session;
    platform::BackgroundHttp& http;
    const platform::Clock& clock;
    std::filesystem::path historyFile;
    std::function<std::string(std::chrono::system_clock::time_point)> timeText;  ///< of a line of the history
    std::function<PageRules()> rules;
    std::function<void(const LostPages&)> warn;
    std::function<void(const std::string&)> onProblem;  ///< a line could not be written
  };

  explicit PageMonitor(Parts parts);

  /// One tick: compares the last two totals and begins what is due.
  void TimerRun();

  /// Warns when too many pages are gone, writes the history, and takes the total as the one to compare with.
  void ShowLostPageAlert();

  /// Has the next tick count, also when the service has just failed. Only while watching is on.
  static void WantPageCount(SessionMemory& memory);

 private:
  void GetPageCount();
  void TakePageCount(const std::optional<ServiceReply>& reply);
  void SavePagesNumToHistory();
  std::int64_t Now() const;

  PageTotals& totals() { return m_parts.session.memory.pages; }

  Parts m_parts;
  MOnlineOneNoteMain_Asyn m_worker;
};

}  // namespace quill::online
