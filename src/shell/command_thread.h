#pragma once
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace quill::shell {

/// The one thread that owns all shared state and runs one command at a time. Methods may be called from
/// any thread; jobs run on this one.
class CommandThread {
 public:
  using Job = std::function<void()>;

  /// `tick` runs every `period` while no command runs; a tick that falls into a command waits for its end.
  CommandThread(Job tick, std::chrono::milliseconds period);

  /// Waits for the running job's end; a command that was accepted but not begun is dropped,
  /// its `finished` called.
  ~CommandThread();
  CommandThread(const CommandThread&) = delete;
  CommandThread& operator=(const CommandThread&) = delete;

  /// Runs the job unless a command is running or waiting. Returns that command's name when refused. The
  /// thread is free for the next command before `finished` is called (on this thread too).
  std::optional<std::string> TryRun(std::string name, Job job, Job finished);

  /// Runs a short job between commands, in the order of the calls. Dropped when the object goes first.
  void Post(Job job);

 private:
  void Loop();
  /// Runs a job without the lock, which it holds again afterwards.
  static void RunUnlocked(std::unique_lock<std::mutex>& lock, const Job& job);

  Job m_tick;
  std::chrono::milliseconds m_period;
  std::mutex m_mutex;
  std::condition_variable m_wake;
  std::optional<std::string> m_busyWith;
  std::deque<Job> m_posted;
  Job m_job;
  Job m_finished;
  bool m_stop = false;
  std::thread m_thread;
};

}  // namespace quill::shell
