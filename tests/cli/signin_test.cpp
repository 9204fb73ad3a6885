#include <gmock/gmock.h>

#include <functional>
#include <mutex>
#include <nlohmann/json.hpp>

#include "platform/web_server.h"
#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The identity platform and the service of notebooks on a server of the test's own.
class Signin : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    server.pages.Post("/common/oauth2/v2.0/token", [this](const auto& request, auto& response) {
      const std::lock_guard lock(m_mutex);
      m_forms.push_back(request.body);
      response.status = m_tokenStatus;
      response.set_content(m_tokens, "application/json");
      if (m_meanwhile) m_meanwhile();
    });
    server.pages.Get("/v1.0/me", [this](const auto& request, auto& response) {
      response.status = IsKnown(request) ? 200 : 401;
      if (response.status == 401) response.set_header("WWW-Authenticate", "Bearer");
      response.set_content(R"({"userPrincipalName":"ada@outlook.com","id":"7c1f0a93b2d84e65"})",
                           "application/json");
    });
    server.pages.Get("/v1.0/me/onenote/notebooks", [this](const auto& request, auto& response) {
      response.status = IsKnown(request) ? 200 : 401;
      response.set_content(
          R"({"value":[{"isShared":false,"links":{"oneNoteClientUrl":{"href":"https://docs.test/7c1f/N"}}}]})",
          "application/json");
    });
    server.Start();
    for (const char* name : {"QUILL_GRAPH_URL", "QUILL_IDENTITY_URL", "QUILL_SIGNIN_URL"})
      ::setenv(name, server.address().c_str(), 1);
    ::setenv("QUILL_DOCUMENT_HOST", "docs.test", 1);
    ::setenv("QUILL_CLIENT_ID", "11112222-3333-4444-5555-666677778888", 1);
  }
  void TearDown() override {
    for (const char* name : {"QUILL_GRAPH_URL", "QUILL_IDENTITY_URL", "QUILL_SIGNIN_URL",
                             "QUILL_DOCUMENT_HOST", "QUILL_CLIENT_ID"})
      ::unsetenv(name);
    Quill::TearDown();
  }

  bool IsKnown(const httplib::Request& request) const {
    return request.get_header_value("Authorization") == "Bearer secret-at";
  }
  std::string Redirect(const std::string& query) const {
    return server.address() + "/oauth20_desktop.srf?" + query;
  }

  /// Every file below the root, and everything that the last call wrote, that holds the text.
  std::vector<fs::path> FilesWith(const std::string& text) const {
    std::vector<fs::path> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_folder)) {
      if (entry.is_regular_file() && ReadFile(entry.path()).ValueOr("").find(text) != std::string::npos)
        found.push_back(entry.path());
    }
    return found;
  }

  /// What the token page answers from now on, and what happens elsewhere while it does.
  void GiveTokens(int status, const std::string& body, std::function<void()> meanwhile = {}) {
    const std::lock_guard lock(m_mutex);
    m_tokenStatus = status;
    m_tokens = body;
    m_meanwhile = std::move(meanwhile);
  }
  /// The forms that the token page was sent.
  std::vector<std::string> Forms() {
    const std::lock_guard lock(m_mutex);
    return m_forms;
  }

  static constexpr const char* kTokens =
      R"({"token_type":"Bearer","access_token":"secret-at","refresh_token":"secret-rt"})";
  test::WebServer server;

 private:
  std::mutex m_mutex;
  std::vector<std::string> m_forms;
  int m_tokenStatus = 200;
  std::string m_tokens = kTokens;
  std::function<void()> m_meanwhile;
};

// The whole way of somebody without a screen: address out, address in, signed in; what is secret stays in one
// file that nobody else may read.
TEST_F(Signin, GoesFromTheAddressToTheAccount) {
  const Output done =
      Run("--explain signin", "\n " + Redirect("code=M.C1&username=ada%40outlook.com&x=1") + " \r\n");
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_THAT(done.out,
              AllOf(StartsWith(server.address() + "/common/oauth2/v2.0/authorize?prompt=login&client_id="),
                    EndsWith("/oauth20_desktop.srf\n")));
  EXPECT_THAT(done.err, AllOf(HasSubstr("3 requests"), HasSubstr("signed in as ada@outlook.com\n")));
  ASSERT_EQ(Forms().size(), 1u);
  EXPECT_THAT(Forms()[0], HasSubstr("&code=M.C1&redirect_uri=" + server.address() + "/oauth20_desktop.srf"));
  for (const char* secret : {"secret-at", "secret-rt"}) {
    const std::vector<fs::path> files = FilesWith(secret);
    ASSERT_EQ(files.size(), 1u) << secret;
    EXPECT_EQ(files[0].extension(), ".plist");
    EXPECT_EQ(fs::status(files[0]).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  }

  const Output status = Run("signin --status --json");
  EXPECT_EQ(status.status, 0);
  EXPECT_EQ(nlohmann::json::parse(status.out), (nlohmann::json{{"signedIn", true},
                                                               {"user", "ada@outlook.com"},
                                                               {"userId", "7c1f0a93b2d84e65"},
                                                               {"account", "7c1f"}}));
  EXPECT_EQ(Run("signin --status").out, "signed in as ada@outlook.com\n");
}

// Scripts that have the code, or its address, hand it over; through a pipe nobody else sees it.
TEST_F(Signin, TakesACodeOrAnAddress) {
  const struct {
    std::string words;
    std::string input;
    const char* code;
  } calls[] = {{"--code M.1", "", "M.1"},
               {"--code -", "M.2\n", "M.2"},
               {"--redirect '" + Redirect("code=M.3") + "'", "", "M.3"},
               {"--redirect -", Redirect("code=M.4&lc=1"), "M.4"}};
  for (const auto& call : calls) {
    const Output done = Run("signin --json " + call.words, call.input);
    EXPECT_EQ(done.status, 0) << call.words << done.err;
    EXPECT_EQ(nlohmann::json::parse(done.out)["signedIn"], true) << call.words;
    EXPECT_THAT(Forms().back(), HasSubstr("&code=" + std::string(call.code) + "&redirect"));
  }
}

// Settings that the running program saves during a sign-in are not taken back.
TEST_F(Signin, LeavesOtherSettingsAlone) {
  const std::string change =
      "QUILL_ROOT='" + (m_folder / "root").string() + "' '" + m_program + "' settings set Language de";
  GiveTokens(200, kTokens, [change] { EXPECT_EQ(std::system(change.c_str()), 0); });
  EXPECT_EQ(Run("signin --code c").status, 0);
  EXPECT_EQ(Run("settings get Language").out, "de\n");
  const std::string before = Run("settings list --json").out;
  Run("signin --out");
  nlohmann::json expected = nlohmann::json::parse(before);
  for (const char* key : {"OnlineOneNoteAccessToken", "OnlineOneNoteRefreshToken"})
    expected[key] = "(not set)";
  for (const char* key : {"ClientUrlAccountId", "OnlineOneNoteUserId", "OnlineOneNoteUserPrincipalName"})
    expected[key] = "";
  EXPECT_EQ(nlohmann::json::parse(Run("settings list --json").out), expected);
}

// Signing out needs no service: the tokens are gone at once, from the file, too.
TEST_F(Signin, SignsOut) {
  EXPECT_EQ(Run("signin --code c").status, 0);
  server.Stop();
  const Output out = Run("signin --out");
  EXPECT_EQ(out.status, 0) << out.err;
  EXPECT_THAT(out.out, StartsWith(server.address() + "/oauth20_logout.srf?client_id="));
  EXPECT_TRUE(FilesWith("secret-").empty());
  const Output status = Run("signin --status");
  EXPECT_EQ(status.status, 1);
  EXPECT_EQ(status.out, "not signed in\n");
}

// Each failure says what is wrong and what it is wrong with.
TEST_F(Signin, TellsWhyNobodyIsSignedIn) {
  GiveTokens(400, R"({"error":"invalid_grant","error_description":"AADSTS70008: expired"})");
  const Output refused = Run("signin --code old");
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, AllOf(HasSubstr("gave no token"), HasSubstr("not signed in")));
  GiveTokens(200, R"({"access_token":"another-at"})");
  const Output unknown = Run("signin --code c");
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err,
              AllOf(HasSubstr("Get Microsoft user information failure!\n"), Not(HasSubstr("another"))));
  server.Stop();
  const Output offline = Run("signin --code c");
  EXPECT_EQ(offline.status, 1);
  EXPECT_THAT(offline.err, HasSubstr("Get token - authorization code error! (The server does not accept"));
}

// A wrong call is told before anything changes; what a page says is shown only as far as a terminal bears it.
TEST_F(Signin, RefusesWrongCalls) {
  EXPECT_EQ(Run("signin --code c").status, 0);
  const std::string refusal = "error=access_denied&error_description=The+user%1b%5B31m%20said%c2%9bno" +
                              std::string(300, 'x') + "&state=1";
  const struct {
    std::string words;
    std::string input;
    int status;
    std::string said;
  } calls[] = {
      {"", "", 1, "no address was entered"},
      {"--code -", "\n\n", 1, "standard input ended"},
      {"--code ''", "", 2, "the code is empty"},
      {"--code 'a b'", "", 2, "the code is empty or has characters"},
      {"", "http://evil.test/?code=c\n", 2, "https://"},
      {"", "https://login.test/?state=1&code=c\n", 2, "no \"?code=\""},
      {"--redirect -", Redirect(refusal), 2, "the service refused the sign-in: The user [31m said noxxx"},
      {"--status --out", "", 2, "--out"},
      {"--code c --redirect u", "", 2, "--redirect"}};
  for (const auto& call : calls) {
    const Output output = Run("signin " + call.words, call.input);
    EXPECT_EQ(output.status, call.status) << call.words << call.input << output.err;
    EXPECT_THAT(output.err, HasSubstr(call.said)) << call.words;
    EXPECT_LT(output.err.size(), 350u);
  }
  EXPECT_EQ(Forms().size(), 1u);
  EXPECT_EQ(Run("signin --status").status, 0);
}

// A build without an identifier of its own cannot sign in and says what it lacks; everything else still
// works.
TEST_F(Signin, NeedsAClientId) {
  ::setenv("QUILL_CLIENT_ID", "00000000-0000-0000-0000-000000000000", 1);
  const Output refused = Run("signin", Redirect("code=c"));
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.out, "");
  EXPECT_THAT(refused.err, HasSubstr("QUILL_CLIENT_ID"));
  EXPECT_TRUE(Forms().empty());
  EXPECT_EQ(Run("signin --out").status, 0);
}

}  // namespace
}  // namespace quill::cli
