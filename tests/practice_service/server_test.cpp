#include <gmock/gmock.h>

#include <future>

#include "practice_service/service_world.h"

namespace quill::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class Server : public ServiceWorld {
 protected:
  /// How long the service takes to end.
  std::chrono::milliseconds TimeOfEnd() {
    const auto start = steady_clock::now();
    service.reset();
    return std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start);
  }
};

// A client that asks often never has to connect again.
TEST_F(Server, KeepsAConnectionForThousandsOfRequests) {
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(Get("/v1.0/me")->status, 200);
  EXPECT_EQ(service->Connections(), 1);
}

// The end waits for nobody: neither for a connection that is idle nor for answers that are held back.
TEST_F(Server, EndsAtOnceWhateverGoesOn) {
  EXPECT_EQ(Get("/v1.0/me")->status, 200);
  EXPECT_LT(TimeOfEnd(), 200ms);

  for (const char* name : {"hang", ""}) {
    Restart({});
    service->ForgetRequests();
    *name != '\0' ? service->Faults().Add(*practice::ParseFault(name)) : service->Faults().SetLatency(60s);
    std::future<Answer> answer = std::async(std::launch::async, [&] { return Get("/v1.0/me"); });
    while (service->Requests().empty()) std::this_thread::yield();
    EXPECT_LT(TimeOfEnd(), 200ms);
    EXPECT_FALSE(answer.get().ok());
  }
}

// A client that gives up waiting frees its thread: more of them than there are threads do no harm.
TEST_F(Server, ForgetsClientsThatHaveLeft) {
  service->Faults().Add(*practice::ParseFault("hang@/me?"));
  for (int i = 0; i < 40; ++i) {
    platform::HttpRequest request;
    request.url = service->Addresses().graph + "/v1.0/me?" + std::to_string(i);
    request.deadline = 30ms;
    EXPECT_FALSE(http.Send(request).ok());
  }
  EXPECT_EQ(Get("/v1.0/me")->status, 200);
}

TEST_F(Server, HoldsAnswersBack) {
  service->Faults().SetLatency(60ms);
  const auto start = steady_clock::now();
  EXPECT_EQ(Get("/v1.0/me")->status, 200);
  EXPECT_GE(steady_clock::now() - start, 60ms);
}

// Several clients at a time, each with its own connection and all with whole answers.
TEST_F(Server, AnswersManyAtATime) {
  std::vector<std::future<int>> clients;
  for (int i = 0; i < 12; ++i) {
    clients.push_back(std::async(std::launch::async, [&] {
      int good = 0;
      for (int k = 0; k < 20; ++k) good += List("notebooks")["value"].size() == 2 ? 1 : 0;
      return good;
    }));
  }
  for (std::future<int>& client : clients) EXPECT_EQ(client.get(), 20);
}

TEST_F(Server, TellsATakenPort) {
  practice::ServiceOptions options;
  options.port = service->Port();
  const auto second = practice::PracticeService::Start(std::make_unique<MadeUpLibrary>(), options);
  ASSERT_FALSE(second.ok());
  EXPECT_EQ(second.error(), "port " + std::to_string(options.port) + " is taken");
}

// A name that was made to lead here must not open the service to a page of that name.
TEST_F(Server, AnswersOnlyToItsOwnName) {
  EXPECT_EQ(Send(platform::HttpMethod::Get, "/v1.0/me", "", {{"Host", "example.com"}})->status, 403);
  EXPECT_EQ(Send(platform::HttpMethod::Post, "/v1.0/me", "", {{"Origin", "null"}})->status, 403);
}

TEST_F(Server, RecordsRequestsAsTheyCame) {
  service->ForgetRequests();
  (void)List("sections?filter=tolower(name) eq 'a'");
  EXPECT_THAT(service->Requests(),
              testing::ElementsAre("GET /v1.0/me/onenote/sections?filter=tolower(name)%20eq%20'a'"));
}

}  // namespace
}  // namespace quill::test
