#include "ui/kit/latest_job.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QThreadPool>
#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "gui_world.h"

namespace quill::ui {
namespace {

using testing::ElementsAre;

/// Work that ends when it is told to, or when the test lets it.
struct Gate {
  std::atomic<bool> isOpen = false;
  std::atomic<int> begun = 0;
  std::atomic<int> ended = 0;
};

auto Through(const std::shared_ptr<Gate>& gate, std::string value) {
  return [gate, value](const LatestJob::IsCancelled& isCancelled) {
    ++gate->begun;
    while (!gate->isOpen && !isCancelled()) std::this_thread::yield();
    ++gate->ended;
    return value;
  };
}

// Of jobs that come faster than they are done, those in between never begin.
TEST(LatestJob, OnlyTheLastCounts) {
  const auto gate = std::make_shared<Gate>();
  std::vector<std::string> done;
  const auto keep = [&](std::string value) { done.push_back(std::move(value)); };
  LatestJob job;
  job.Run(Through(gate, "first"), keep);
  ASSERT_TRUE(WaitUntil([&] { return gate->begun == 1; }));
  job.Run(Through(gate, "second"), keep);
  job.Run(Through(gate, "third"), keep);
  EXPECT_TRUE(job.isRunning());
  gate->isOpen = true;
  ASSERT_TRUE(WaitUntil([&] { return !done.empty(); }));
  EXPECT_THAT(done, ElementsAre("third"));
  EXPECT_EQ(gate->begun, 2);
  EXPECT_FALSE(job.isRunning());
}

// Whoever hears of the result may ask for the next, or be done with it all.
TEST(LatestJob, ItsEndMayBeginAnotherOrDeleteIt) {
  const auto gate = std::make_shared<Gate>();
  gate->isOpen = true;
  auto job = std::make_unique<LatestJob>();
  bool isDone = false;
  job->Run(Through(gate, "a"), [&](const std::string&) {
    job->Run(Through(gate, "b"), [&](const std::string&) {
      job.reset();
      isDone = true;
    });
  });
  EXPECT_TRUE(WaitUntil([&] { return isDone; }));
}

// A job that is ended or gone is told so, is not waited for, and says nothing more.
TEST(LatestJob, SaysNothingAfterItsEnd) {
  // Both jobs hold a thread at the same time.
  QThreadPool& threads = *QThreadPool::globalInstance();
  threads.setMaxThreadCount(std::max(2, threads.maxThreadCount()));
  const auto gate = std::make_shared<Gate>();
  bool isDone = false;
  const auto tell = [&](const std::string&) { isDone = true; };
  LatestJob cancelled;
  cancelled.Run(Through(gate, "a"), tell);
  auto gone = std::make_unique<LatestJob>();
  gone->Run(Through(gate, "b"), tell);
  ASSERT_TRUE(WaitUntil([&] { return gate->begun == 2; }));
  cancelled.Cancel();
  gone.reset();
  EXPECT_FALSE(cancelled.isRunning());
  ASSERT_TRUE(WaitUntil([&] { return gate->ended == 2; }));
  ProcessEventsFor(20ms);
  EXPECT_FALSE(isDone);
  gate->isOpen = true;
  cancelled.Run(Through(gate, "c"), tell);
  EXPECT_TRUE(WaitUntil([&] { return isDone; }));
}

}  // namespace
}  // namespace quill::ui
