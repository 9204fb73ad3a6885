#pragma once
#include <deque>
#include <utility>

#include "platform/background_processes.h"

namespace quill::cli {

/// Programs of somebody who waits for them: each is run when it is its turn, in the order of the calls, and
/// ended by Control+C.
class AwaitedProcesses final : public platform::BackgroundProcesses {
 public:
  explicit AwaitedProcesses(platform::ProcessRunner& runner) : m_runner(runner) {}

  void Start(platform::ProcessRequest request, Done done) override;

  /// Runs what waits, and what follows from it.
  void Finish();

 private:
  platform::ProcessRunner& m_runner;
  std::deque<std::pair<platform::ProcessRequest, Done>> m_waiting;
};

}  // namespace quill::cli
