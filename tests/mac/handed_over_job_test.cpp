#include "platform/mac/handed_over_job.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>

namespace quill::platform::mac {
namespace {

using std::chrono::milliseconds;
constexpr JobLimits kPatient{std::chrono::seconds(20), std::chrono::seconds(20)};

// The ordinary case, with the two threads in either order.
TEST(HandedOverJob, AnswerReachesTheGiver) {
  HandedOverJob<int> done([] { return 7; });
  done.Perform();
  EXPECT_EQ(done.Await(kPatient), 7);

  HandedOverJob<std::string> later([] { return std::string("later"); });
  auto other = std::async(std::launch::async, [&] { later.Perform(); });
  EXPECT_EQ(later.Await(kPatient), "later");
}

// A busy main thread must not paste into whatever window is in front half a minute later.
TEST(HandedOverJob, WorkThatWasGivenUpIsNeverDone) {
  int done = 0;
  HandedOverJob<int> job([&] { return ++done; });
  EXPECT_FALSE(job.Await({milliseconds(1), std::chrono::seconds(20)}));
  job.Perform();
  EXPECT_EQ(done, 0);
}

// Work that was taken up in time has its own limit: a long script is not given up half-way.
TEST(HandedOverJob, WorkUnderWayIsAwaitedBeyondTheLimitForItsStart) {
  std::promise<void> started;
  std::promise<void> release;
  HandedOverJob<int> job([&] {
    started.set_value();
    release.get_future().wait();
    return 1;
  });
  auto worker = std::async(std::launch::async, [&] { job.Perform(); });
  started.get_future().wait();
  auto giver = std::async(std::launch::async, [&] { return job.Await({milliseconds(0), kPatient.finish}); });
  EXPECT_EQ(giver.wait_for(milliseconds(50)), std::future_status::timeout) << "gone without the answer";
  release.set_value();
  EXPECT_EQ(giver.get(), 1);
}

// The giver has gone on when stuck work ends at last: nothing of what it left may be touched.
TEST(HandedOverJob, StuckWorkEndsWithoutItsGiver) {
  std::promise<void> release;
  auto job = std::make_shared<HandedOverJob<int>>([held = release.get_future().share()] {
    held.wait();
    return 1;
  });
  auto other = std::async(std::launch::async, [job] { job->Perform(); });
  EXPECT_FALSE(job->Await({std::chrono::seconds(20), milliseconds(1)}));
  job.reset();
  release.set_value();
  EXPECT_EQ(other.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

}  // namespace
}  // namespace quill::platform::mac
