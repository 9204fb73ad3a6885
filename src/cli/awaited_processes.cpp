#include "cli/awaited_processes.h"

#include "cli/interrupts.h"

namespace quill::cli {

void AwaitedProcesses::Start(platform::ProcessRequest request, Done done) {
  request.isCancelled = WasInterrupted;
  m_waiting.emplace_back(std::move(request), std::move(done));
}

void AwaitedProcesses::Finish() {
  while (!m_waiting.empty()) {
    const auto [request, done] = std::move(m_waiting.front());
    m_waiting.pop_front();
    done(m_runner.Run(request));
  }
}

}  // namespace quill::cli
