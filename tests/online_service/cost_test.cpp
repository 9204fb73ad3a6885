#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "online/token_requests.h"
#include "online_service/online_world.h"

namespace quill::online {
namespace {

using std::chrono::steady_clock;

/// Wall time of a piece of work, in milliseconds.
template <class Work>
double Milliseconds(Work work) {
  const auto start = steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

// A page in the third of three sections of one name: one search, and all pages of the first two.
TEST(OnlineCost, ASearchAsksForNothingTwice) {
  OnlineWorld world(250);
  EXPECT_EQ(world.Run(2), 1 + 7 + 1) << world.host.AllTexts();
  ASSERT_EQ(world.host.insertions.size(), 1u) << world.host.AllTexts();
  const std::vector<std::string> requests = world.service->Requests();
  EXPECT_EQ(requests.size(), 9u) << testing::PrintToString(requests);
  EXPECT_EQ(world.Run(2), 1);      // known: only the content
  EXPECT_EQ(world.Run(10000), 1);  // the list of pages
  EXPECT_EQ(world.Run(10001), 1);
  EXPECT_EQ(world.Run(10003), 1);
  EXPECT_EQ(world.Run(10005), 2);
}

// Requests of one command follow each other on one connection, without a pause between.
TEST(OnlineCost, TakesNoLongerThanItsRequests) {
  constexpr double kLatency = 40;
  OnlineWorld world;
  const int connections = world.service->Connections();
  world.service->Faults().SetLatency(std::chrono::milliseconds(static_cast<int>(kLatency)));
  int requests = 0;
  const double time = Milliseconds([&] { requests = world.Run(2); });
  EXPECT_EQ(world.host.insertions.size(), 1u);
  EXPECT_EQ(world.service->Connections(), connections);
  // What this machine takes for as many requests of no content, at this moment.
  const double floor = Milliseconds([&] {
    for (int i = 0; i < requests; ++i)
      static_cast<void>(world.http.Send(
          UserRequest(world.endpoints, world.account.OnlineOneNoteAccessToken, std::chrono::seconds(30))));
  });
  RecordProperty("ratio", std::to_string(time / (requests * kLatency)));
  EXPECT_GE(floor, requests * kLatency);
  EXPECT_LE(time, floor * 1.15 + 30);  // milliseconds: this build parses JSON slowly
}

}  // namespace
}  // namespace quill::online
