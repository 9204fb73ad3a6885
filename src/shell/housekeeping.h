#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "shell/globals.h"

namespace quill::shell {

/// What is done while the user is away, in the order in which it is done.
enum class HousekeepingSlot { Backup, UpdateDownload, UpdateNotice };

/// Looks once a second whether the user is away and lets the jobs work then. Each job decides by itself
/// whether there is work today. The owner calls `Tick` on the command thread, never while a command runs.
class Housekeeping {
 public:
  using Moment = std::chrono::system_clock::time_point;
  using Work = std::function<void(Globals& globals, Moment now)>;
  /// Whether a job has work to do. Asked before the screen is, so it is to be cheap.
  using IsDue = std::function<bool(const Globals& globals, Moment now)>;
  /// Finds out whether a menu or a modal window is open, and tells it once, then or later, on the command
  /// thread.
  using AskForScreen = std::function<void(std::function<void(bool isFree)>)>;

  Housekeeping(Globals& globals, platform::Desktop& desktop, const platform::Clock& clock);

  /// Puts the work into its slot, in place of what was there. Idle time and switch belong to the slot:
  /// 10 s and `OneAppBackup_Enable`, 20 s, 30 s. Work without `isDue` is due always.
  void AddJob(HousekeepingSlot slot, Work work, IsDue isDue = nullptr);

  /// From here on nothing is done while a menu or a modal window is open.
  void WaitForScreen(AskForScreen ask) { m_askForScreen = std::move(ask); }

  /// Asks for the idle time (not at all while there are no jobs), and when a job may run that is due, for the
  /// screen; runs the jobs then. A tick inside a job or before the screen's answer does nothing. An unknown
  /// idle time (−1) counts as a user who is there.
  void Tick();

 private:
  struct Job {
    HousekeepingSlot slot;
    std::int64_t minIdleSeconds;
    bool (*enabled)(const Settings& settings);
    Work run;
    IsDue isDue;
  };

  bool MayRun(const Job& job) const;
  bool HasWork() const;
  void RunJobs();

  Globals& m_globals;
  platform::Desktop& m_desktop;
  const platform::Clock& m_clock;
  std::vector<Job> m_jobs;
  AskForScreen m_askForScreen;
  bool m_isAsking = false;
  bool m_ticking = false;
};

}  // namespace quill::shell
