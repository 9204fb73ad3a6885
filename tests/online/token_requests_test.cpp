#include "online/token_requests.h"

#include <gmock/gmock.h>

#include "online/service_client.h"
#include "scripted_http.h"

namespace quill::online {
namespace {

using platform::HttpHeader;
using testing::ElementsAre;

constexpr const char* kClient = "11112222-3333-4444-5555-666677778888";

// The service knows the program by these exact addresses; a redirect address that is escaped is another one.
TEST(SignInAddresses, AreWhatTheServiceHasRegistered) {
  const AccountWorld world;
  EXPECT_EQ(
      AuthorizeUrl(world.endpoints),
      "https://identity.test/common/oauth2/v2.0/authorize?prompt=login&client_id=" + std::string(kClient) +
          "&response_type=code&response_mode=query&scope=offline_access%20User.Read%20Notes.Create%20"
          "Notes.ReadWrite%20Notes.ReadWrite.All&redirect_uri=https://signin.test/oauth20_desktop.srf");
  EXPECT_EQ(LogoutUrl(world.endpoints),
            "https://signin.test/oauth20_logout.srf?client_id=" + std::string(kClient) +
                "&redirect_uri=https://signin.test/oauth20_desktop.srf");
}

// Both token requests differ in their body only; its length is counted in bytes.
TEST(TokenRequests, PostAForm) {
  const AccountWorld world;
  const auto code = CodeRequest(world.endpoints, "M.C1\u00e9", std::chrono::seconds(60));
  EXPECT_EQ(code.method, platform::HttpMethod::Post);
  EXPECT_EQ(code.url, "https://identity.test/common/oauth2/v2.0/token");
  EXPECT_EQ(code.body, "grant_type=authorization_code&client_id=" + std::string(kClient) +
                           "&code=M.C1\u00e9&redirect_uri=https://signin.test/oauth20_desktop.srf");
  EXPECT_THAT(code.headers, ElementsAre(HttpHeader{"Content-Length", "141"},
                                        HttpHeader{"Content-Type", "application/x-www-form-urlencoded"}));
  EXPECT_EQ(code.deadline, std::chrono::seconds(60));
  EXPECT_EQ(RefreshRequest(world.endpoints, "rt", std::chrono::seconds(10)).body,
            "grant_type=refresh_token&client_id=" + std::string(kClient) +
                "&refresh_token=rt&redirect_uri=https://signin.test/oauth20_desktop.srf");
}

// Business accounts' ids are GUIDs, and only their notebooks are asked for by id.
TEST(GraphRequests, CarryTheTokenAndFollowTheKindOfAccount) {
  AccountWorld world;
  world.account.OnlineOneNoteUserId = "48d31887-5fad-4d73-a9f5-3c356e68a038";
  const auto user = UserRequest(world.endpoints, "at", std::chrono::seconds(30));
  EXPECT_EQ(user.url, "https://graph.test/v1.0/me");
  EXPECT_THAT(user.headers, ElementsAre(HttpHeader{"Authorization", "Bearer at"}));
  EXPECT_EQ(user.method, platform::HttpMethod::Get);
  EXPECT_EQ(NotebooksRequest(world.endpoints, world.account, std::chrono::seconds(30)).url,
            "https://graph.test/v1.0/users/48d31887-5fad-4d73-a9f5-3c356e68a038/onenote/notebooks");
  for (const char* id : {"7c1f0a93b2d84e65", ""})
    EXPECT_EQ(GraphBaseUrl(world.endpoints, id), "https://graph.test/v1.0/me") << id;
}

// What is cut off here is sent as the code: one letter too many and nobody can sign in.
TEST(RedirectFields, AreTakenAsTheyAreWritten) {
  const std::string url = "https://signin.test/oauth20_desktop.srf?code=M.C1_B%2f*x!&lc=1033";
  EXPECT_EQ(GetFieldValueFromURL(url, "code"), "M.C1_B%2f*x!");
  EXPECT_EQ(GetFieldValueFromURL(url, "lc"), "1033");
  EXPECT_EQ(GetFieldValueFromURL(url, "username"), "");
  EXPECT_EQ(GetFieldValueFromURL("", "code"), "");
}

// The search is literal, and the service's error bodies sign the user out rather than leave a stale token.
TEST(TakeTokens, ReplacesBothWhateverTheBodyIs) {
  const struct {
    const char* body;
    const char* access;
    const char* refresh;
  } cases[] = {{kTokens, "at-1", "rt-1"},
               {R"({"access_token": "a","refresh_token":"r\u002f\\"})", "", R"(r\u002f\\)"},
               {R"({"access_token":"a\"b","expires_in":1})", "a\\", ""},
               {R"({"error":"invalid_grant","error_description":"AADSTS70008"})", "", ""},
               {R"({"access_token":"cut)", "", ""},
               {"", "", ""}};
  for (const auto& one : cases) {
    Account account{"old", "old", "c", "i", "n"};
    TakeTokens(one.body, account);
    EXPECT_EQ(account, (Account{one.access, one.refresh, "c", "i", "n"})) << one.body;
  }
  Account account{"at", "rt", "c", "old", "old"};
  TakeUser(R"({"request-id":"x","id":"7c","manager":{"id":"8d","userPrincipalName":"b@c"}})", account);
  EXPECT_EQ(account, (Account{"at", "rt", "c", "7c", "b@c"}));
}

// A shared notebook is kept in somebody else's account.
TEST(AccountOfNotebooks, IsThatOfTheFirstOwnOne) {
  EXPECT_EQ(GetAccountIdFromNotebookJson(kNotebooks, "docs.test"), "7c1f0a93");
  const std::pair<const char*, const char*> cases[] = {
      {R"({"value":[{"isShared":true,"links":{"oneNoteClientUrl":{"href":"https://docs.test/a/b"}}}]})", ""},
      {R"({"value":[{"isShared":1},{"links":{"oneNoteClientUrl":{"href":"https://x-my.test/personal/ada_x/N"}}}]})",
       "ada_x"},
      {R"({"value":[{"isShared":false,"links":null},{"links":{"oneNoteClientUrl":{"href":"https://docs.test/a/b"}}}]})",
       ""},
      {R"({"value":["x",null,{"isShared":null,"links":{"oneNoteClientUrl":{"href":"https://docs.test/a/b"}}}]})",
       "a"},
      {R"({"value":[]})", ""},
      {R"([{"isShared":false}])", ""},
      {"<html>", ""},
      {"", ""}};
  for (const auto& [body, account] : cases)
    EXPECT_EQ(GetAccountIdFromNotebookJson(body, "docs.test"), account) << body;
}

// Only a demand for credentials tells a token that has run out from any other refusal.
TEST(ServiceClient, KnowsATransportFailure) {
  ScriptedHttp http({ScriptedHttp::Failed(), ScriptedHttp::Unauthorized(), ScriptedHttp::Answer("{}", 401),
                     ScriptedHttp::Answer("x", 403, {{"WWW-Authenticate", "Bearer"}}),
                     ScriptedHttp::Answer("a\xFFz", 200)});
  ServiceClient client(http);
  EXPECT_FALSE(client.Send({}));
  EXPECT_EQ(client.LastFailure()->problem, platform::HttpProblem::NotConnected);
  EXPECT_FALSE(client.Send({}));
  EXPECT_FALSE(client.LastFailure());
  EXPECT_EQ(client.Send({})->status, 401);
  EXPECT_EQ(client.Send({})->body, "x");
  EXPECT_EQ(client.Send({})->body, "") << "what is not UTF-8 must not reach a parser or a window";
  EXPECT_EQ(client.RequestCount(), 5);
}

// Cancel ends the request under way, and nothing follows it.
TEST(ServiceClient, SendsNothingAfterCancel) {
  bool isCancelled = false;
  ScriptedHttp http({ScriptedHttp::Answer("{}")});
  ServiceClient client(http, [&] { return isCancelled; });
  EXPECT_TRUE(client.Send({}));
  isCancelled = true;
  EXPECT_TRUE(http.requests[0].isCancelled());
  EXPECT_FALSE(client.Send({}));
  EXPECT_EQ(client.LastFailure()->problem, platform::HttpProblem::Cancelled);
  EXPECT_EQ(client.RequestCount(), 1);
}

}  // namespace
}  // namespace quill::online
