#include "shell/command_thread.h"

#include <utility>

namespace quill::shell {

CommandThread::CommandThread(Job tick, std::chrono::milliseconds period)
    : m_tick(std::move(tick)), m_period(period), m_thread([this] { Loop(); }) {}

CommandThread::~CommandThread() {
  {
    const std::lock_guard lock(m_mutex);
    m_stop = true;
  }
  m_wake.notify_all();
  m_thread.join();
}

std::optional<std::string> CommandThread::TryRun(std::string name, Job job, Job finished) {
  {
    const std::lock_guard lock(m_mutex);
    if (m_busyWith) return m_busyWith;
    m_busyWith = std::move(name);
    m_job = std::move(job);
    m_finished = std::move(finished);
  }
  m_wake.notify_all();
  return std::nullopt;
}

void CommandThread::Post(Job job) {
  {
    const std::lock_guard lock(m_mutex);
    m_posted.push_back(std::move(job));
  }
  m_wake.notify_all();
}

void CommandThread::RunUnlocked(std::unique_lock<std::mutex>& lock, const Job& job) {
  lock.unlock();
  if (job) job();
  lock.lock();
}

void CommandThread::Loop() {
  auto nextTick = std::chrono::steady_clock::now() + m_period;
  std::unique_lock lock(m_mutex);
  while (!m_stop) {
    m_wake.wait_until(lock, nextTick, [this] { return m_stop || m_job || !m_posted.empty(); });
    if (m_stop) break;
    if (!m_posted.empty()) {
      const Job posted = std::move(m_posted.front());
      m_posted.pop_front();
      RunUnlocked(lock, posted);
    } else if (m_job) {
      const Job job = std::exchange(m_job, nullptr);
      const Job finished = std::exchange(m_finished, nullptr);
      RunUnlocked(lock, job);
      m_busyWith.reset();
      RunUnlocked(lock, finished);
    } else {
      RunUnlocked(lock, m_tick);
      nextTick = std::chrono::steady_clock::now() + m_period;
    }
  }
  const Job abandoned = std::exchange(m_finished, nullptr);
  lock.unlock();
  if (abandoned) abandoned();  // whoever waits for it must not wait for ever
}

}  // namespace quill::shell
