#include "shell/background_processes.h"

#include <gtest/gtest.h>

#include "platform/posix/posix_process_runner.h"

namespace quill::shell {
namespace {

platform::ProcessRequest Running(std::vector<std::string> command) {
  platform::ProcessRequest request;
  request.command = std::move(command);
  return request;
}

// The program's end takes its children along and waits for nothing else; nobody hears of them.
TEST(BackgroundProcesses, EndWithTheProgram) {
  int posted = 0;
  BackgroundProcesses processes(std::make_shared<platform::PosixProcessRunner>(),
                                [&posted](const std::function<void()>&) { ++posted; });
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 3; ++i) processes.Start(Running({"sleep", "60"}), [](const auto&) { ADD_FAILURE(); });
  processes.Stop();
  processes.Start(Running({"true"}), [](const auto&) { ADD_FAILURE(); });
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
  EXPECT_EQ(posted, 0);
}

}  // namespace
}  // namespace quill::shell
