#include "shell/background_processes.h"

#include <system_error>
#include <utility>

namespace quill::shell {

BackgroundProcesses::BackgroundProcesses(std::shared_ptr<platform::ProcessRunner> runner,
                                         std::function<void(std::function<void()>)> post)
    : m_runner(std::move(runner)), m_post(std::move(post)) {}

BackgroundProcesses::~BackgroundProcesses() {
  Stop();
}

void BackgroundProcesses::Start(platform::ProcessRequest request, Done done) {
  request.isCancelled = [this, own = std::move(request.isCancelled)] { return m_stop || (own && own()); };
  const std::lock_guard lock(m_mutex);
  if (m_stop) return;
  JoinEnded();
  Child& child = m_children.emplace_back();
  try {
    child.thread =
        std::thread([this, &child, request = std::move(request), done] { Wait(request, done, child); });
  } catch (const std::system_error& problem) {  // no room for a thread
    m_children.pop_back();
    platform::ProcessResult result;
    result.reason = problem.what();
    Tell(std::move(done), std::move(result));
  }
}

void BackgroundProcesses::Wait(const platform::ProcessRequest& request, const Done& done, Child& child) {
  Tell(done, m_runner->Run(request));
  child.isOver = true;
}

void BackgroundProcesses::Tell(Done done, platform::ProcessResult result) {
  if (m_stop) return;
  m_post([done = std::move(done), shared = std::make_shared<platform::ProcessResult>(std::move(result))] {
    done(std::move(*shared));
  });
}

void BackgroundProcesses::JoinEnded() {
  m_children.remove_if([](Child& child) {
    if (!child.isOver) return false;
    child.thread.join();
    return true;
  });
}

void BackgroundProcesses::Stop() {
  std::list<Child> children;
  {
    const std::lock_guard lock(m_mutex);
    m_stop = true;
    children.swap(m_children);
  }
  for (Child& child : children) child.thread.join();
}

}  // namespace quill::shell
