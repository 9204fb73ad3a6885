#include "platform/mac/poller.h"

#include <gtest/gtest.h>

#include <future>

namespace quill::platform::mac {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// A copy of a page link is read at once: a deadline of zero still has to look.
TEST(Poller, AsksOnceWithoutADeadline) {
  int asked = 0;
  Poller poller;
  EXPECT_TRUE(poller.Until(milliseconds(0), milliseconds(10), [&] { return ++asked == 1; }));
  EXPECT_FALSE(poller.Until(milliseconds(0), milliseconds(10), [&] { return ++asked == 99; }));
  EXPECT_EQ(asked, 2);
}

// Contents that arrive between the last interval and the deadline count.
TEST(Poller, AsksOnceMoreAtTheDeadline) {
  int asked = 0;
  Poller poller;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(poller.Until(milliseconds(5), seconds(20), [&] { return ++asked == 2; }));
  EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(10)) << "waited for the interval";
}

// Quitting must not take as long as the longest wait that the user has set.
TEST(Poller, StopEndsAWaitThatIsUnderWay) {
  Poller poller;
  std::promise<void> asked;
  bool first = true;
  auto wait = std::async(std::launch::async, [&] {
    return poller.Until(seconds(60), seconds(60), [&] {
      if (std::exchange(first, false)) asked.set_value();
      return false;
    });
  });
  asked.get_future().wait();
  poller.Stop();
  ASSERT_EQ(wait.wait_for(seconds(20)), std::future_status::ready);
  EXPECT_FALSE(wait.get());
}

}  // namespace
}  // namespace quill::platform::mac
