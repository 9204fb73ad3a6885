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
  using Work = std::function<void(Globals& globals, std::chrono::system_clock::time_point now)>;

  Housekeeping(Globals& globals, platform::Desktop& desktop, const platform::Clock& clock);

  /// Puts the work into its slot, in place of what was there. Idle time and switch belong to the slot:
  /// 10 s and `OneAppBackup_Enable`, 20 s, 30 s.
  void AddJob(HousekeepingSlot slot, Work work);

  /// Asks for the idle time once (not at all while there are no jobs) and runs the jobs that may run. A
  /// tick inside a job does nothing. An unknown idle time (−1) counts as a user who is there.
  void Tick();

 private:
  struct Job {
    HousekeepingSlot slot;
    std::int64_t minIdleSeconds;
    bool (*enabled)(const Settings& settings);
    Work run;
  };

  Globals& m_globals;
  platform::Desktop& m_desktop;
  const platform::Clock& m_clock;
  std::vector<Job> m_jobs;
  bool m_ticking = false;
};

}  // namespace quill::shell
