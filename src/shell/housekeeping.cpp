#include "shell/housekeeping.h"

#include <algorithm>

namespace quill::shell {
namespace {

bool BackupEnabled(const Settings& settings) {
  return settings.OneAppBackup_Enable;
}

bool Always(const Settings&) {
  return true;
}

/// Sets a flag for a scope, whichever way the scope ends.
class Raised {
 public:
  explicit Raised(bool& flag) : m_flag(flag) { m_flag = true; }
  ~Raised() { m_flag = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& m_flag;
};

}  // namespace

Housekeeping::Housekeeping(Globals& globals, platform::Desktop& desktop, const platform::Clock& clock)
    : m_globals(globals),
      m_desktop(desktop),
      m_clock(clock),
      m_jobs{{HousekeepingSlot::Backup, 10, BackupEnabled, nullptr, nullptr},
             {HousekeepingSlot::UpdateDownload, 20, Always, nullptr, nullptr},
             {HousekeepingSlot::UpdateNotice, 30, Always, nullptr, nullptr}} {}

void Housekeeping::AddJob(HousekeepingSlot slot, Work work, IsDue isDue) {
  const auto job =
      std::find_if(m_jobs.begin(), m_jobs.end(), [slot](const Job& one) { return one.slot == slot; });
  if (job == m_jobs.end()) return;
  job->run = std::move(work);
  job->isDue = std::move(isDue);
}

bool Housekeeping::MayRun(const Job& job) const {
  if (!job.run || !job.enabled(m_globals.settings)) return false;
  return !job.isDue || job.isDue(m_globals, m_clock.Now());
}

bool Housekeeping::HasWork() const {
  const bool idleMatters =
      std::any_of(m_jobs.begin(), m_jobs.end(), [](const Job& job) { return static_cast<bool>(job.run); });
  if (!idleMatters) return false;
  const std::int64_t idle = m_desktop.GetIdleSeconds();
  return std::any_of(m_jobs.begin(), m_jobs.end(),
                     [&](const Job& job) { return idle >= job.minIdleSeconds && MayRun(job); });
}

void Housekeeping::Tick() {
  if (m_ticking || m_isAsking || !HasWork()) return;
  if (!m_askForScreen) return RunJobs();
  m_isAsking = true;
  m_askForScreen([this](bool isFree) {
    m_isAsking = false;
    if (isFree) RunJobs();
  });
}

void Housekeeping::RunJobs() {
  const Raised ticking(m_ticking);
  const std::int64_t idle =
      m_desktop.GetIdleSeconds();  // the answer about the screen may have taken its time
  for (const Job& job : m_jobs) {
    if (idle < job.minIdleSeconds) return;  // the later jobs need more
    if (MayRun(job)) job.run(m_globals, m_clock.Now());
  }
}

}  // namespace quill::shell
