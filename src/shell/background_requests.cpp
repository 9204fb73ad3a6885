#include "shell/background_requests.h"

#include <utility>

namespace quill::shell {

BackgroundRequests::BackgroundRequests(std::shared_ptr<platform::Http> http,
                                       std::function<void(std::function<void()>)> post)
    : m_http(std::move(http)), m_post(std::move(post)) {}

BackgroundRequests::~BackgroundRequests() {
  Stop();
}

void BackgroundRequests::Send(platform::HttpRequest request, Done done) {
  request.isCancelled = [this] { return IsStopped(); };
  {
    const std::lock_guard lock(m_mutex);
    if (m_stop) return;
    m_waiting.push_back({std::move(request), std::move(done)});
    if (!m_thread.joinable()) m_thread = std::thread([this] { Loop(); });
  }
  m_wake.notify_all();
}

void BackgroundRequests::Stop() {
  std::thread thread;
  {
    const std::lock_guard lock(m_mutex);
    m_stop = true;
    m_waiting.clear();
    thread.swap(m_thread);
  }
  m_wake.notify_all();
  if (thread.joinable()) thread.join();
}

bool BackgroundRequests::IsStopped() {
  const std::lock_guard lock(m_mutex);
  return m_stop;
}

void BackgroundRequests::Loop() {
  std::unique_lock lock(m_mutex);
  while (true) {
    m_wake.wait(lock, [this] { return m_stop || !m_waiting.empty(); });
    if (m_stop) return;
    const Waiting next = std::move(m_waiting.front());
    m_waiting.pop_front();
    lock.unlock();
    auto answer =
        std::make_shared<Result<platform::HttpResponse, platform::HttpFailure>>(m_http->Send(next.request));
    if (!IsStopped()) m_post([done = next.done, answer] { done(std::move(*answer)); });
    lock.lock();
  }
}

}  // namespace quill::shell
