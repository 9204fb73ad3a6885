#include <gmock/gmock.h>

#include "content/text_between.h"
#include "practice/service/token_book.h"
#include "practice_service/service_world.h"

namespace quill::test {
namespace {

using namespace std::chrono_literals;
using content::TextBetween;
using platform::HeaderValue;
using platform::HttpMethod;
using testing::HasSubstr;
using testing::StartsWith;

class SignIn : public ServiceWorld {
 protected:
  SignIn() { token.clear(); }

  std::string Redirect() { return service->Addresses().signIn + "/oauth20_desktop.srf"; }
  std::string AuthorizePath(const std::string& prompt = "prompt=login&") {
    return "/common/oauth2/v2.0/authorize?" + prompt + "client_id=" + service->Addresses().clientId +
           "&response_type=code&response_mode=query&scope=offline_access%20User.Read&redirect_uri=" +
           Redirect();
  }
  Answer PostForm(const std::string& path, const std::string& form, const std::string& cookie = "") {
    return Send(HttpMethod::Post, path, form,
                {{"Content-Type", "application/x-www-form-urlencoded"}, {"Cookie", cookie}});
  }
  Answer Token(const std::string& grant, const std::string& secret, const std::string& redirect) {
    return PostForm("/common/oauth2/v2.0/token", "grant_type=" + grant +
                                                     "&client_id=" + service->Addresses().clientId + "&" +
                                                     secret + "&redirect_uri=" + redirect);
  }
  Answer ExchangeCode(const std::string& code) {
    return Token("authorization_code", "code=" + code, Redirect());
  }
  static std::string Location(const Answer& answer) {
    return std::string(HeaderValue(answer->headers, "Location"));
  }
  int StatusOfMe(const std::string& accessToken) {
    token = accessToken;
    const int status = Get("/v1.0/me")->status;
    token.clear();
    return status;
  }
};

// The whole way as the program goes it: page, form, redirect, tokens, user, fresh tokens.
TEST_F(SignIn, LeadsFromThePageToTokensThatWork) {
  EXPECT_THAT(Get(AuthorizePath())->body, HasSubstr("<form"));
  const Answer posted = PostForm(AuthorizePath(), "username=practice%40example.com&password=any");
  EXPECT_EQ(posted->status, 302);
  const std::string location = Location(posted);
  EXPECT_THAT(location, StartsWith(Redirect() + "?code="));
  EXPECT_THAT(location, HasSubstr("&username=practice%40example.com"));

  const std::string code(TextBetween(location, "?code=", "&"));
  const Answer tokens = ExchangeCode(code);
  const std::string access(TextBetween(tokens->body, "\"access_token\":\"", "\""));
  const std::string refresh(TextBetween(tokens->body, "\"refresh_token\":\"", "\""));
  EXPECT_EQ(StatusOfMe(access), 200);

  const Answer fresh = Token("refresh_token", "refresh_token=" + refresh, Redirect());
  const std::string second(TextBetween(fresh->body, "\"access_token\":\"", "\""));
  EXPECT_NE(second, access);
  EXPECT_EQ(StatusOfMe(second), 200);
  EXPECT_EQ(Token("refresh_token", "refresh_token=" + refresh, Redirect())->status, 400)
      << "a refresh token is good once";
}

// A code in the wrong hands, or twice, must not become tokens.
TEST_F(SignIn, TakesACodeOnceAndOnlyWithItsAddress) {
  const std::string code = service->IssueCode();
  EXPECT_EQ(ExchangeCode(code)->status, 200);
  const Answer again = ExchangeCode(code);
  EXPECT_EQ(again->status, 400);
  EXPECT_THAT(again->body, StartsWith(R"({"error":"invalid_grant","error_description":")"));
  EXPECT_EQ(Token("authorization_code", "code=" + service->IssueCode(), "http://elsewhere/")->status, 400);
}

// An address that another program made up ends on a page and never in a redirect.
TEST_F(SignIn, RefusesAddressesThatAreNotTheProgramsOwn) {
  for (const char* part : {"client_id=5", "response_type=code", "oauth20_desktop"}) {
    std::string path = AuthorizePath();
    path.replace(path.find(part), 5, "wrong");
    EXPECT_EQ(Get(path)->status, 400) << path;
    EXPECT_EQ(PostForm(path, "username=practice%40example.com&password=any")->status, 400) << path;
  }
}

// The form is shown again for what it does not take, and gives way when the user gives up.
TEST_F(SignIn, AsksAgainAndCanBeCancelled) {
  EXPECT_THAT(PostForm(AuthorizePath(), "username=somebody&password=any")->body, HasSubstr("no such user"));
  EXPECT_EQ(PostForm(AuthorizePath(), "username=practice%40example.com&password=")->status, 200);
  EXPECT_THAT(Location(PostForm(AuthorizePath(), "username=&password=&cancel=1")),
              StartsWith(Redirect() + "?error=access_denied&error_description="));
}

// Signing out forgets the browser; "prompt=login" never trusts it in the first place.
TEST_F(SignIn, RemembersABrowserUntilItSignsOut) {
  const Answer posted = PostForm(AuthorizePath(), "username=practice%40example.com&password=any");
  const std::string cookie(TextBetween(HeaderValue(posted->headers, "Set-Cookie"), "", ";"));
  const auto statusOfPage = [&](const std::string& prompt) {
    platform::HttpRequest request;
    request.url = service->Addresses().identity + AuthorizePath(prompt);
    request.headers = {{"Cookie", cookie},
                       {"Authorization", "none"}};  // which keeps the client from following
    return http.Send(request)->status;
  };
  EXPECT_EQ(statusOfPage("prompt=login&"), 200);
  EXPECT_EQ(statusOfPage(""), 302);
  const Answer out = Send(HttpMethod::Get, "/oauth20_logout.srf?client_id=x", "", {{"Cookie", cookie}});
  EXPECT_THAT(HeaderValue(out->headers, "Set-Cookie"), HasSubstr("Max-Age=0"));
  EXPECT_EQ(statusOfPage(""), 200);
}

// What is kept of the requests can be shown to anybody.
TEST_F(SignIn, HidesWhatSignsIn) {
  const std::string code = service->IssueCode();
  service->ForgetRequests();
  (void)ExchangeCode(code);
  (void)Get("/oauth20_desktop.srf?co%64e=" + code + "&username=a%40b&CODE=" + code);
  EXPECT_THAT(service->Requests(),
              testing::ElementsAre("POST /common/oauth2/v2.0/token",
                                   "GET /oauth20_desktop.srf?co%64e…&username=a%40b&CODE…"));
}

// An expired token is told with the challenge that makes clients ask for a new one.
TEST_F(SignIn, ChallengesATokenThatIsNoLongerGood) {
  const std::string access = service->IssueTokens().access;
  EXPECT_EQ(StatusOfMe(access), 200);
  service->ExpireAccessTokens();
  token = access;
  const Answer answer = Get("/v1.0/me/onenote/notebooks");
  EXPECT_EQ(Told(answer), "401 40001");
  EXPECT_THAT(HeaderValue(answer->headers, "WWW-Authenticate"), StartsWith("Bearer "));
  EXPECT_THAT(answer->body, HasSubstr(R"("code": "40001", "message": ")"));
}

// Lives end exactly when they should, on a clock that the test turns.
TEST(TokenBook, EndsTokensAndCodesInTime) {
  std::chrono::steady_clock::time_point now{};
  practice::TokenBook book(60s, [&now] { return now; });
  const auto pair = book.Issue();
  const std::string early = book.NewCode("r");
  const std::string late = book.NewCode("r");
  now += 59s;
  EXPECT_TRUE(book.IsGood(pair.access));
  now += 1s;
  EXPECT_FALSE(book.IsGood(pair.access));
  now = std::chrono::steady_clock::time_point(10min) - 1s;
  EXPECT_TRUE(book.TakeCode(early, "r"));
  now += 1s;
  EXPECT_FALSE(book.TakeCode(late, "r"));
  EXPECT_TRUE(book.TakeRefresh(pair.refresh)) << "a refresh token outlives its access token";
}

}  // namespace
}  // namespace quill::test
