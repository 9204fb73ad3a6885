#pragma once
#include <httplib.h>

#include <cstdlib>
#include <future>
#include <string>
#include <thread>

namespace quill::test {

/// A web server on this machine for one test. Handlers are added before `Start`.
class WebServer {
 public:
  WebServer() {
    ::setenv("no_proxy", "127.0.0.1,host.invalid", 1);
    pages.set_keep_alive_max_count(1000);
    pages.set_keep_alive_timeout(60);
    m_port = pages.bind_to_any_port("127.0.0.1");
    m_released = m_release.get_future().share();
  }
  ~WebServer() { Stop(); }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  void Start() {
    m_thread = std::thread([this] { pages.listen_after_bind(); });
    while (!pages.is_running()) std::this_thread::yield();
  }

  /// Afterwards connections to its address are refused.
  void Stop() {
    if (!m_thread.joinable()) return;
    m_release.set_value();
    pages.stop();
    m_thread.join();
  }

  /// For handlers that do not answer: returns when the test is over.
  void Hang() const { m_released.wait(); }

  /// "http://127.0.0.1:PORT"
  std::string address() const { return "http://127.0.0.1:" + std::to_string(m_port); }

  httplib::Server pages;

 private:
  int m_port = 0;
  std::promise<void> m_release;
  std::shared_future<void> m_released;
  std::thread m_thread;
};

}  // namespace quill::test
