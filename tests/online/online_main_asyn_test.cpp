#include "online/online_main_asyn.h"

#include <gmock/gmock.h>

#include "scripted_http.h"

namespace quill::online {
namespace {

/// Requests under way, answered when the test says so.
class OpenRequests final : public platform::BackgroundHttp {
 public:
  void Send(platform::HttpRequest request, Done done) override {
    urls.push_back(request.url);
    bodies.push_back(request.body);
    m_done = std::move(done);
  }
  void Answer(ScriptedHttp::Reply reply) {
    ASSERT_TRUE(m_done);
    std::exchange(m_done, nullptr)(std::move(reply));
  }

  std::vector<std::string> urls;
  std::vector<std::string> bodies;

 private:
  Done m_done;
};

class OnlineMainAsyn : public testing::Test {
 protected:
  using Time = std::chrono::system_clock::time_point;

  bool MayStart() const { return worker->MayStart(clock.Now()); }

  OpenRequests http;
  AccountWorld world;
  platform::FixedClock clock{Time(std::chrono::hours(1000))};
  int counts = 0;
  std::unique_ptr<MOnlineOneNoteMain_Asyn> worker =
      std::make_unique<MOnlineOneNoteMain_Asyn>(world.session, http, clock, [this] { ++counts; });
};

// Code, tokens, user, count: one chain, and nothing else begins until the count has ended it.
TEST_F(OnlineMainAsyn, GoesFromTheCodeToTheCount) {
  world.account = {};
  world.memory.PendingAuthCode = "c-1";
  EXPECT_TRUE(MayStart());
  worker->RetrieveTokensByCode();
  EXPECT_THAT(http.bodies.at(0), testing::HasSubstr("&code=c-1&"));
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  EXPECT_FALSE(MayStart());
  worker->RetrieveUserIdByToken();
  worker->RefreshTokens();
  EXPECT_EQ(http.urls.size(), 1u) << "one request at a time";
  http.Answer(ScriptedHttp::Answer(kTokens));
  EXPECT_EQ(http.urls.at(1), "https://graph.test/v1.0/me");
  http.Answer(ScriptedHttp::Answer(kUser));
  EXPECT_EQ(counts, 1);
  EXPECT_EQ(world.account, (Account{"at-1", "rt-1", "", "7c1f0a93b2d84e65", "ada@outlook.com"}));
  EXPECT_EQ(world.saved.back(), world.account);
  EXPECT_FALSE(MayStart());
  worker->EndChain(MOnlineOneNoteMain_Asyn::ChainEnd::Done);
  EXPECT_TRUE(MayStart());
}

// A code is good for one exchange; when that cannot be made the refresh token may still help.
TEST_F(OnlineMainAsyn, RefreshesWhenTheExchangeFails) {
  world.memory.PendingAuthCode = "c-1";
  worker->RetrieveTokensByCode();
  http.Answer(ScriptedHttp::Failed());
  EXPECT_THAT(http.bodies.at(1), testing::HasSubstr("&refresh_token=rt-0&"));
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "");
  http.Answer(ScriptedHttp::Answer(kTokens));
  EXPECT_EQ(counts, 1);
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "at-1");
  worker->EndChain(MOnlineOneNoteMain_Asyn::ChainEnd::Done);
  worker->RetrieveTokensByCode();
  EXPECT_EQ(http.urls.size(), 2u);
  EXPECT_TRUE(MayStart());
}

// A service that is down is not asked every two seconds.
TEST_F(OnlineMainAsyn, WaitsAMinuteAfterAFailure) {
  const Time start = clock.Now();
  const std::pair<void (MOnlineOneNoteMain_Asyn::*)(), ScriptedHttp::Reply> failures[] = {
      {&MOnlineOneNoteMain_Asyn::RetrieveUserIdByToken, ScriptedHttp::Failed()},
      {&MOnlineOneNoteMain_Asyn::RetrieveUserIdByToken, ScriptedHttp::Answer("{}", 503)},
      {&MOnlineOneNoteMain_Asyn::RefreshTokens, ScriptedHttp::Unauthorized()},
      {&MOnlineOneNoteMain_Asyn::RefreshTokens,
       ScriptedHttp::Answer(R"({"error":"temporarily_unavailable"})", 400)}};
  for (const auto& [begin, reply] : failures) {
    clock.Set(start);
    ((*worker).*begin)();
    http.Answer(reply);
    EXPECT_FALSE(MayStart());
    clock.Set(start + std::chrono::seconds(59));
    EXPECT_FALSE(MayStart());
    clock.Set(start + std::chrono::seconds(60));
    EXPECT_TRUE(MayStart());
    clock.Set(start - std::chrono::hours(24));
    EXPECT_TRUE(MayStart()) << "a clock that was set back must not stop the work for a day";
  }
  EXPECT_EQ(counts, 0);
  EXPECT_EQ(world.account.OnlineOneNoteRefreshToken, "rt-0") << "a refresh that brought nothing keeps it";
}

// Without anything to ask with, the chain ends at once and nothing has failed.
TEST_F(OnlineMainAsyn, EndsWithoutTokens) {
  world.account = {};
  worker->RetrieveUserIdByToken();
  worker->RefreshTokens();
  worker->RetrieveTokensByCode();
  EXPECT_TRUE(http.urls.empty());
  EXPECT_TRUE(MayStart());
}

// Whoever signs out while a request is under way must not be signed in again by its answer.
TEST_F(OnlineMainAsyn, DropsAnAnswerForAnotherAccount) {
  worker->RefreshTokens();
  world.account = {};
  http.Answer(ScriptedHttp::Answer(kTokens));
  EXPECT_EQ(world.account, Account{});
  EXPECT_TRUE(world.saved.empty());
  EXPECT_EQ(counts, 0);
  EXPECT_TRUE(MayStart());
}

// The program ends while the service thinks.
TEST_F(OnlineMainAsyn, MayGoBeforeTheAnswer) {
  worker->RetrieveUserIdByToken();
  worker.reset();
  http.Answer(ScriptedHttp::Answer(kUser));
  EXPECT_EQ(world.account.OnlineOneNoteUserId, "id-0");
  EXPECT_EQ(counts, 0);
}

}  // namespace
}  // namespace quill::online
