#pragma once
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/background_http.h"

namespace quill::shell {

/// Sends requests from a thread of its own, one after the other in the order of the calls, and hands each
/// answer to the command thread. The thread begins with the first request.
class BackgroundRequests final : public platform::BackgroundHttp {
 public:
  /// `post` runs a job on the command thread some time; it is called on the thread of this object.
  BackgroundRequests(std::shared_ptr<platform::Http> http, std::function<void(std::function<void()>)> post);
  /// As `Stop`.
  ~BackgroundRequests() override;
  BackgroundRequests(const BackgroundRequests&) = delete;
  BackgroundRequests& operator=(const BackgroundRequests&) = delete;

  void Send(platform::HttpRequest request, Done done) override;

  /// Ends the request that is under way as soon as it notices, about a second at most, and drops the others.
  /// Nothing is posted when this has returned, and nothing sent any more. Any thread but its own.
  void Stop();

 private:
  struct Waiting {
    platform::HttpRequest request;
    Done done;
  };

  void Loop();
  bool IsStopped();

  std::shared_ptr<platform::Http> m_http;
  std::function<void(std::function<void()>)> m_post;
  std::mutex m_mutex;
  std::condition_variable m_wake;
  std::deque<Waiting> m_waiting;
  bool m_stop = false;
  std::thread m_thread;
};

}  // namespace quill::shell
