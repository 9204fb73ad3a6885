#include "online/sign_in.h"

#include <gmock/gmock.h>

#include "online/token_requests.h"
#include "scripted_http.h"

namespace quill::online {
namespace {

using testing::ElementsAre;

constexpr const char* kRedirect = "https://signin.test/oauth20_desktop.srf";
constexpr std::chrono::system_clock::time_point kNow{std::chrono::milliseconds(1'800'000'000'900)};

// The user name comes on the page with the code, or on one before it.
TEST(SignInPages, EndWithTheCode) {
  const AccountWorld world;
  SignInPages pages(world.endpoints, SignInMode::Login);
  EXPECT_EQ(pages.FirstAddress(), AuthorizeUrl(world.endpoints));
  EXPECT_FALSE(pages.PageFinished("https://login.test/ppsecure?x=1&username=ada%40contoso.com&y").isFinished);
  EXPECT_FALSE(pages.PageFinished(std::string(kRedirect) + "?error=access_denied&state=1").isFinished);
  const auto step = pages.PageFinished(std::string(kRedirect) + "?code=M.C1%40b");
  EXPECT_TRUE(step.isFinished);
  EXPECT_EQ(step.load, "");
  EXPECT_EQ(pages.Result(), (SignInResult{"ada@contoso.com", "M.C1%40b"}));

  SignInPages both(world.endpoints, SignInMode::Login);
  EXPECT_TRUE(both.PageFinished(std::string(kRedirect) + "?code=c&username=a%40b&z=1").isFinished);
  EXPECT_EQ(both.Result(), (SignInResult{"a@b", "c"}));
}

// A code on a page that anybody on the way can write may be that of the attacker's account.
TEST(SignInPages, TrustNoPlainPage) {
  AccountWorld world;
  const char* const plain[] = {"http://signin.test/?code=c", "http://127.0.0.1:8080/?code=c",
                               "http://[::1]:80/?code=c", "http://localhost?code=c", "file:///x?code=c"};
  for (const char* url : plain) {
    SignInPages pages(world.endpoints, SignInMode::Login);
    EXPECT_FALSE(pages.PageFinished(url).isFinished) << url;
    EXPECT_EQ(pages.Result().code, "") << url;
  }
  world.endpoints.signIn = "http://localhost:8080";
  for (const char* url : {plain[1], plain[2], plain[3], "https://signin.test/?code=c"}) {
    SignInPages pages(world.endpoints, SignInMode::Login);
    EXPECT_TRUE(pages.PageFinished(url).isFinished) << url;
  }
  for (const char* url :
       {plain[0], plain[4], "http://127.0.0.1@evil.test/?code=c", "http://[::1].evil.test?code=c",
        "http://127.0.0.1.evil.test/?code=c", "http://localhost\\@evil.test?code=c", "https:/x?code=c"}) {
    SignInPages pages(world.endpoints, SignInMode::Login);
    EXPECT_FALSE(pages.PageFinished(url).isFinished) << url;
  }
}

// Signing out goes on to a fresh sign-in, also when the logout page cannot be loaded, and does so once.
TEST(SignInPages, GoOnAfterTheLogoutPage) {
  const AccountWorld world;
  SignInPages pages(world.endpoints, SignInMode::LogoutThenLogin);
  EXPECT_EQ(pages.FirstAddress(), LogoutUrl(world.endpoints));
  const auto step = pages.PageFinished("about:blank");
  EXPECT_TRUE(step.clearsCookies);
  EXPECT_EQ(step.load, AuthorizeUrl(world.endpoints));
  const auto next = pages.PageFinished(step.load);
  EXPECT_EQ(next.load, "");
  EXPECT_FALSE(next.clearsCookies);
}

class FinishingSignIn : public testing::Test {
 protected:
  Status<> Finish(const SignInResult& result) {
    BeginLogin(world.session);
    return FinishSignIn(world.session, client, result, kNow,
                        [this](SignInProblem problem) { told.emplace_back(SignInProblemText(problem)); });
  }

  ScriptedHttp http;
  AccountWorld world;
  ServiceClient client{http};
  std::vector<std::string> told;
};

// From the code to everything that the online commands need; the old tokens are gone before anything is
// asked.
TEST_F(FinishingSignIn, BringsTokensUserAndAccount) {
  http = ScriptedHttp(
      {ScriptedHttp::Answer(kTokens), ScriptedHttp::Answer(kUser), ScriptedHttp::Answer(kNotebooks)});
  world.memory.TryRefreshTokens = 3;
  EXPECT_TRUE(Finish({"ada@contoso.com", "c-1"}).ok());
  EXPECT_EQ(world.account, (Account{"at-1", "rt-1", "7c1f0a93", "7c1f0a93b2d84e65", "ada@outlook.com"}));
  EXPECT_EQ(world.saved.front(), (Account{"", "", "", "ada@contoso.com", ""}));
  EXPECT_EQ(world.saved.back(), world.account);
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  EXPECT_EQ(world.memory.TryRefreshTokens, 0);
  EXPECT_EQ(world.memory.LastCountCheckTime, 1'800'000'000 - 1740);
  EXPECT_TRUE(told.empty());
  ASSERT_EQ(http.requests.size(), 3u);
  EXPECT_THAT(http.requests[0].body, testing::HasSubstr("&code=c-1&"));
  EXPECT_EQ(http.requests[2].url, "https://graph.test/v1.0/me/onenote/notebooks");
  EXPECT_EQ(http.requests[2].headers[0].value, "Bearer at-1");
  for (const auto& request : http.requests) EXPECT_EQ(request.deadline, std::chrono::seconds(60));
}

// Each problem is told in its own words, and what can still be had is had.
TEST_F(FinishingSignIn, TellsWhatDidNotCome) {
  http.Add(ScriptedHttp::Failed());
  EXPECT_TRUE(Finish({"", "c-1"}).ok());
  EXPECT_THAT(told, ElementsAre("Get token - authorization code error!"));
  EXPECT_EQ(world.account, Account{});
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  EXPECT_EQ(world.memory.LastCountCheckTime, 0);
  told.clear();
  http = ScriptedHttp({ScriptedHttp::Answer(kTokens), ScriptedHttp::Unauthorized(), ScriptedHttp::Failed()});
  EXPECT_TRUE(Finish({"a-b@contoso.com", "c-2"}).ok());
  EXPECT_THAT(told,
              ElementsAre("Get Microsoft user information failure!", "Get client user information failure!"));
  EXPECT_EQ(http.requests[2].url, "https://graph.test/v1.0/users/a-b@contoso.com/onenote/notebooks");
  EXPECT_EQ(world.account, (Account{"at-1", "rt-1", "", "a-b@contoso.com", ""}));
}

// An answer that holds no token, or a user who has had enough, is nothing to raise an alert for.
TEST_F(FinishingSignIn, StaysSilentWithoutATransportFailure) {
  http.Add(ScriptedHttp::Answer(R"({"error":"invalid_grant"})", 400));
  EXPECT_TRUE(Finish({"", "c-1"}).ok());
  ServiceClient cancelled(http, [] { return true; });
  EXPECT_TRUE(FinishSignIn(world.session, cancelled, {"", "c-1"}, kNow, [this](SignInProblem problem) {
                told.emplace_back(SignInProblemText(problem));
              }).ok());
  EXPECT_TRUE(told.empty());
  EXPECT_EQ(world.account.OnlineOneNoteAccessToken, "");
}

// A disk that is full is told: the user would be signed out again at the next start.
TEST_F(FinishingSignIn, ReturnsTheFailureOfTheLastSave) {
  http = ScriptedHttp({ScriptedHttp::Answer(kTokens), ScriptedHttp::Answer(kUser), ScriptedHttp::Failed()});
  world.session.save = [&]() -> Status<> {
    if (world.account.OnlineOneNoteUserPrincipalName.empty()) return Done();
    return Failure{std::string("disk full")};
  };
  const Status<> saved = Finish({"", "c"});
  ASSERT_FALSE(saved.ok());
  EXPECT_EQ(saved.error(), "disk full");
}

// Nothing of one account may be seen by the next one.
TEST(SigningOut, ForgetsEverythingAndSavesIt) {
  AccountWorld world;
  world.memory.PendingAuthCode = "c";
  world.memory.resolvedPages.Remember("id-0", "p", {"1", "2"});
  EXPECT_TRUE(BeginLogout(world.session).ok());
  EXPECT_EQ(world.account, Account{});
  EXPECT_THAT(world.saved, ElementsAre(Account{}));
  EXPECT_EQ(world.memory.PendingAuthCode, "");
  EXPECT_FALSE(world.memory.resolvedPages.Find("id-0", "p"));
}

}  // namespace
}  // namespace quill::online
