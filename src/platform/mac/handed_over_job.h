#pragma once
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>

namespace quill::platform::mac {

/// How long the thread that hands work over waits.
struct JobLimits {
  std::chrono::milliseconds start;   ///< until the other thread takes the work up
  std::chrono::milliseconds finish;  ///< from then until it is done
};

/// One piece of work that one thread hands to another and awaits. Work that was not taken up in time is
/// never done later: keys that nobody waits for any more must not be typed. Work that was taken up is not
/// interrupted; both threads keep the job by a shared pointer, so it may own what it needs but must not
/// refer to what its giver owns. The work must not throw.
template <class R>
class HandedOverJob {
 public:
  explicit HandedOverJob(std::function<R()> work) : m_work(std::move(work)) {}

  /// Does the work, unless it was given up. Called once, by the thread that it was handed to.
  void Perform() {
    {
      const std::lock_guard lock(m_mutex);
      if (m_state == State::GivenUp) return;
      m_state = State::Running;
    }
    m_changed.notify_all();
    R answer = m_work();
    {
      const std::lock_guard lock(m_mutex);
      m_answer = std::move(answer);
      m_state = State::Done;
    }
    m_changed.notify_all();
  }

  /// The answer; nothing when a limit passed. Called once, by the thread that handed the work over.
  std::optional<R> Await(JobLimits limits) {
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait_for(lock, limits.start, [this] { return m_state != State::Waiting; })) {
      m_state = State::GivenUp;
      return std::nullopt;
    }
    m_changed.wait_for(lock, limits.finish, [this] { return m_state == State::Done; });
    return std::move(m_answer);
  }

 private:
  enum class State { Waiting, Running, Done, GivenUp };

  std::function<R()> m_work;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  State m_state = State::Waiting;
  std::optional<R> m_answer;
};

}  // namespace quill::platform::mac
