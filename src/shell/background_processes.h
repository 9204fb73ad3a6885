#pragma once
#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/background_processes.h"

namespace quill::shell {

/// Runs each program on a thread of its own, which waits for it, and hands its end to the command thread.
class BackgroundProcesses final : public platform::BackgroundProcesses {
 public:
  /// `post` runs a job on the command thread some time; it is called on threads of this object.
  BackgroundProcesses(std::shared_ptr<platform::ProcessRunner> runner,
                      std::function<void(std::function<void()>)> post);
  /// As `Stop`.
  ~BackgroundProcesses() override;
  BackgroundProcesses(const BackgroundProcesses&) = delete;
  BackgroundProcesses& operator=(const BackgroundProcesses&) = delete;

  void Start(platform::ProcessRequest request, Done done) override;

  /// Ends the programs that still run, half a second at most, and waits for that. Nothing is posted when this
  /// has returned, and nothing started any more. Any thread but its own.
  void Stop();

 private:
  struct Child {
    std::thread thread;
    std::atomic<bool> isOver = false;
  };

  void Wait(const platform::ProcessRequest& request, const Done& done, Child& child);
  void Tell(Done done, platform::ProcessResult result);
  /// Takes the threads away whose program has ended. With the lock.
  void JoinEnded();

  std::shared_ptr<platform::ProcessRunner> m_runner;
  std::function<void(std::function<void()>)> m_post;
  std::atomic<bool> m_stop = false;
  std::mutex m_mutex;
  std::list<Child> m_children;
};

}  // namespace quill::shell
