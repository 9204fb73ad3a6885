#include "shell/page_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "base/atomic_file.h"
#include "shell/application.h"
#include "shell/background_requests.h"
#include "shell/command_world.h"
#include "shell/online_session.h"
#include "shell/temporary_folder.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Somebody who is signed in, watched by a service that counts downwards.
struct WatchWorld : testing::Test {
  class Service final : public platform::BackgroundHttp {
   public:
    void Send(platform::HttpRequest request, Done done) override {
      urls.push_back(request.url);
      m_done = std::move(done);
    }
    void Answer() {
      if (!m_done) return;
      platform::HttpResponse response;
      response.status = 200;
      response.body = R"({"@odata.count":)" + std::to_string(count) + R"(,"value":[]})";
      std::exchange(m_done, nullptr)(std::move(response));
    }
    std::int64_t count = 100;
    std::vector<std::string> urls;

   private:
    Done m_done;
  };

  WatchWorld() {
    world.globals.folders.PagesNumHistoryFile = folder.path() / "PagesNumHistory.txt";
    world.globals.settings.OnlineOneNoteAccessToken = "at";
    world.globals.settings.OnlineOneNoteUserId = "id-0";
    world.clock.Set(std::chrono::system_clock::time_point(std::chrono::hours(500'000)));
    watch.emplace(PageWatch::Parts{world.globals, service, world.clock, world.recording, world.strings,
                                   world.log, [this](std::function<void(bool)> answer) {
                                     if (answersAtOnce) return answer(true);
                                     asked.push_back(std::move(answer));
                                   }});
  }
  void Seconds(int count) {
    for (int i = 0; i < count; ++i) {
      watch->Tick();
      service.Answer();
    }
  }

  const test::TemporaryFolder folder;
  test::CommandWorld world;
  Service service;
  std::vector<std::function<void(bool)>> asked;  ///< whether the screen is free
  bool answersAtOnce = true;
  std::optional<PageWatch> watch;
};

// Missing pages come up by themselves: the window with the numbers, and a message for whoever looks
// elsewhere.
TEST_F(WatchWorld, ShowsThatPagesAreMissing) {
  Seconds(4);
  EXPECT_EQ(service.urls.size(), 1u);
  EXPECT_THAT(ReadFile(world.globals.folders.PagesNumHistoryFile).ValueOr(""), HasSubstr("] 100"));
  EXPECT_TRUE(world.recording.windows().empty());
  service.count = 60;
  world.clock.Set(world.clock.Now() + std::chrono::seconds(1800));
  Seconds(4);
  ASSERT_EQ(world.recording.windows().size(), 2u);
  EXPECT_EQ(std::any_cast<PagesNumberRequest>(world.recording.windows()[0]).lost,
            (online::LostPages{100, 60}));
  const auto notice = std::any_cast<NotifyRequest>(world.recording.windows()[1]);
  EXPECT_THAT(notice.text, testing::AllOf(HasSubstr("100"), HasSubstr("60")));
  world.globals.settings.MonitorPageTotal = false;
  world.clock.Set(world.clock.Now() + std::chrono::hours(2));
  Seconds(4);
  EXPECT_EQ(service.urls.size(), 2u);
}

// Every second tick does something, once the screen is known to be free; an answer that is late is waited
// for.
TEST_F(WatchWorld, WaitsForTheScreen) {
  answersAtOnce = false;
  Seconds(1);
  EXPECT_EQ(asked.size(), 1u);
  Seconds(6);
  EXPECT_EQ(asked.size(), 1u) << "one question at a time";
  std::exchange(asked[0], nullptr)(false);
  EXPECT_TRUE(service.urls.empty()) << "a modal window is open";
  Seconds(2);
  ASSERT_EQ(asked.size(), 2u);
  std::exchange(asked[1], nullptr)(true);
  EXPECT_EQ(service.urls.size(), 1u);
}

/// A web service that holds each request until the test lets it go, or until it is given up.
class SlowHttp final : public platform::Http {
 public:
  Result<platform::HttpResponse, platform::HttpFailure> Send(const platform::HttpRequest& request) override {
    ++begun;
    while (!isOpen) {
      if (request.isCancelled && request.isCancelled())
        return Failure{platform::HttpFailure{platform::HttpProblem::Cancelled, {}}};
      std::this_thread::yield();
    }
    order += request.url;
    platform::HttpResponse response;
    response.status = 200;
    response.body = R"({"@odata.count":5,"value":[]})";
    return response;
  }
  std::atomic<int> begun = 0;
  std::atomic<bool> isOpen = false;
  std::string order;
};

// The answers come in the order of the requests, on the thread that they are posted to, and none from `Send`.
TEST(BackgroundRequests, AnswerInTheirOrder) {
  auto http = std::make_shared<SlowHttp>();
  CommandThread thread([] {}, std::chrono::hours(1));
  BackgroundRequests requests(http, [&thread](std::function<void()> job) { thread.Post(std::move(job)); });
  std::string answered;
  std::promise<void> done;
  for (const char* url : {"a", "b", "c"}) {
    platform::HttpRequest request;
    request.url = url;
    requests.Send(request, [&answered, &done, url](const auto& answer) {
      EXPECT_TRUE(answer.ok());
      answered += url;
      if (answered == "abc") done.set_value();
    });
  }
  http->isOpen = true;
  done.get_future().wait();
  EXPECT_EQ(http->order, "abc");
}

// The end of the program does not wait for a service, and nobody hears of what was under way.
TEST(BackgroundRequests, EndWithoutTheAnswer) {
  auto http = std::make_shared<SlowHttp>();
  int posted = 0;
  BackgroundRequests requests(http, [&posted](const std::function<void()>&) { ++posted; });
  for (int i = 0; i < 3; ++i) requests.Send({}, [](const auto&) { ADD_FAILURE(); });
  while (http->begun == 0) std::this_thread::yield();
  requests.Stop();
  requests.Send({}, [](const auto&) { ADD_FAILURE(); });
  EXPECT_EQ(http->begun, 1);
  EXPECT_EQ(posted, 0);
}

// The whole way in a running program, whose settings the command line has just written: account, count,
// history.
TEST(Application, WatchesThePagesOfTheAccountInTheSettings) {
  const test::TemporaryFolder folder;
  test::CommandWorld world;
  world.globals.folders.SettingsFile = folder.path() / "quillapp.plist";
  world.globals.folders.PagesNumHistoryFile = folder.path() / "PagesNumHistory.txt";
  world.clock.Set(std::chrono::system_clock::time_point(std::chrono::hours(500'000)));
  auto http = std::make_shared<SlowHttp>();
  http->isOpen = true;
  Engines engines;
  engines.http = http;
  Application application(
      {world.globals, world.strings, world.clock, world.recording,
       [&] {
         return platform::Backend{"recording", &world.recording, &world.recording, nullptr};
       },
       world.recording, world.recording, world.log, nullptr, engines});
  Globals outside = world.globals;
  outside.settings.OnlineOneNoteAccessToken = "at";
  outside.settings.OnlineOneNoteUserId = "id-0";
  ASSERT_TRUE(OwnSession(outside).save().ok());
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  std::string history;
  while (history.empty() && std::chrono::steady_clock::now() < deadline) {
    history = ReadFile(world.globals.folders.PagesNumHistoryFile).ValueOr("");
    std::this_thread::yield();
  }
  EXPECT_THAT(history, testing::EndsWith("] 5"));
}

}  // namespace
}  // namespace quill::shell
