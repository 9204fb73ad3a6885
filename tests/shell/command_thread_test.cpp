#include "shell/command_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace quill::shell {
namespace {

using std::chrono::milliseconds;

// A second click must be refused with what is running, and the next one after the end accepted.
TEST(CommandThread, RefusesASecondCommandUntilTheFirstIsDone) {
  CommandThread thread([] {}, std::chrono::hours(1));
  std::promise<void> go;
  std::promise<void> firstDone;
  ASSERT_EQ(thread.TryRun(
                "first", [&] { go.get_future().wait(); }, [&] { firstDone.set_value(); }),
            std::nullopt);
  EXPECT_EQ(thread.TryRun(
                "second", [] {}, nullptr),
            "first");
  go.set_value();
  firstDone.get_future().wait();
  std::promise<void> thirdDone;
  EXPECT_EQ(thread.TryRun(
                "third", [] {}, [&] { thirdDone.set_value(); }),
            std::nullopt);
  thirdDone.get_future().wait();
}

// A window's change of a setting must not meet a command half-way, must not be lost, and keeps its order.
TEST(CommandThread, PostedJobsRunInOrderBetweenCommands) {
  CommandThread thread([] {}, std::chrono::hours(1));
  std::promise<void> begun;
  std::promise<void> go;
  std::promise<void> over;
  std::string order;
  thread.TryRun(
      "command",
      [&] {
        begun.set_value();
        go.get_future().wait();
        order += "command ";
      },
      nullptr);
  begun.get_future().wait();
  thread.Post([&] { order += "first "; });
  thread.Post([&] { order += "second "; });
  thread.Post([&] { over.set_value(); });
  go.set_value();
  over.get_future().wait();
  EXPECT_EQ(order, "command first second ");
}

// Housekeeping never runs into a command: both work on the same state.
TEST(CommandThread, TicksOnlyBetweenCommands) {
  std::atomic<bool> inCommand = false;
  std::atomic<int> ticks = 0;
  std::atomic<bool> overlapped = false;
  std::promise<void> ticked;
  CommandThread thread(
      [&] {
        if (inCommand) overlapped = true;
        if (++ticks == 3) ticked.set_value();
      },
      milliseconds(1));
  std::promise<void> done;
  thread.TryRun(
      "c",
      [&] {
        inCommand = true;
        const int before = ticks;
        const auto end = std::chrono::steady_clock::now() + milliseconds(20);
        while (std::chrono::steady_clock::now() < end) {
        }
        overlapped = overlapped || ticks != before;
        inCommand = false;
      },
      [&] { done.set_value(); });
  done.get_future().wait();
  ticked.get_future().wait();
  EXPECT_FALSE(overlapped);
}

// Whoever waits for a command is told when the program ends instead, whether the command had begun or not.
TEST(CommandThread, TellsWaitersAtTheEnd) {
  std::promise<void> finished;
  {
    CommandThread thread([] {}, std::chrono::hours(1));
    thread.TryRun(
        "c", [] {}, [&] { finished.set_value(); });
  }
  EXPECT_EQ(finished.get_future().wait_for(std::chrono::seconds(5)), std::future_status::ready);
}

}  // namespace
}  // namespace quill::shell
