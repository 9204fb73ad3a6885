#pragma once
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace quill::platform::mac {

/// Waits for a condition that nothing announces: asks every `interval`, and once more at the deadline;
/// with a deadline of zero it asks once. `Stop` ends every wait at once.
class Poller {
 public:
  /// True as soon as `condition()` is; false at the deadline and after `Stop`.
  template <class Condition>
  bool Until(std::chrono::milliseconds deadline, std::chrono::milliseconds interval, Condition condition) {
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + deadline;
    while (true) {
      if (condition()) return true;
      const auto now = steady_clock::now();
      if (now >= end) return false;
      std::unique_lock lock(m_mutex);
      if (m_stop.wait_until(lock, std::min(end, now + interval), [this] { return m_stopped; })) return false;
    }
  }

  /// Ends the waits of other threads, and all later ones. May be called from any thread.
  void Stop() {
    {
      const std::lock_guard lock(m_mutex);
      m_stopped = true;
    }
    m_stop.notify_all();
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_stop;
  bool m_stopped = false;
};

}  // namespace quill::platform::mac
