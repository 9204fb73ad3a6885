#include <gmock/gmock.h>

#include <mutex>
#include <nlohmann/json.hpp>

#include "platform/web_server.h"
#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

/// The service with its number of pages, and the identity platform, on a server of the test's own.
class MonitorCall : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    server.pages.Get("/v1.0/me/onenote/pages", [this](const auto& request, auto& response) {
      const std::lock_guard lock(m_mutex);
      ++m_counts;
      const bool isKnown = request.get_header_value("Authorization") == m_authorization;
      response.status = isKnown ? m_status : 401;
      if (!isKnown) response.set_header("WWW-Authenticate", "Bearer");
      response.set_content(R"({"@odata.count":)" + std::to_string(m_total) + R"(,"value":[]})",
                           "application/json");
    });
    server.pages.Post("/common/oauth2/v2.0/token", [](const auto&, auto& response) {
      response.set_content(R"({"access_token":"fresh","refresh_token":"rt"})", "application/json");
    });
    server.pages.Get("/v1.0/me", [](const auto&, auto& response) {
      response.set_content(R"({"userPrincipalName":"ada@outlook.com","id":"7c1f"})", "application/json");
    });
    server.Start();
    for (const char* name : {"QUILL_GRAPH_URL", "QUILL_IDENTITY_URL", "QUILL_SIGNIN_URL"})
      ::setenv(name, server.address().c_str(), 1);
    ::setenv("QUILL_CLIENT_ID", "11112222-3333-4444-5555-666677778888", 1);
  }
  void TearDown() override {
    for (const char* name : {"QUILL_GRAPH_URL", "QUILL_IDENTITY_URL", "QUILL_SIGNIN_URL", "QUILL_CLIENT_ID"})
      ::unsetenv(name);
    Quill::TearDown();
  }
  void SignIn() { ASSERT_EQ(Run("signin --code M.C1").status, 0); }

  void Serve(std::int64_t total, int status = 200) {
    const std::lock_guard lock(m_mutex);
    m_total = total;
    m_status = status;
  }
  void Know(const std::string& token) {
    const std::lock_guard lock(m_mutex);
    m_authorization = "Bearer " + token;
  }
  int counts() {
    const std::lock_guard lock(m_mutex);
    return m_counts;
  }
  std::string History() {
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(m_folder / "root" / "Documents")) {
      if (entry.path().filename() == "PagesNumHistory.txt") return ReadFile(entry.path()).ValueOr("");
    }
    return "";
  }

  test::WebServer server;

 private:
  std::mutex m_mutex;
  std::int64_t m_total = 100;
  int m_status = 200;
  int m_counts = 0;
  std::string m_authorization = "Bearer fresh";
};

// A count on a machine without a screen: total, change and warning, and a history that grows by changes only.
TEST_F(MonitorCall, CountsAndWritesChanges) {
  SignIn();
  EXPECT_EQ(Run("monitor --once").out, "100 pages\n");
  EXPECT_THAT(History(), MatchesRegex("\\[....-..-.. ..:..:..\\] 100"));
  EXPECT_EQ(Run("monitor --once").out, "100 pages (+0 since the last line of the history)\n");
  Serve(90);
  const Output lost = Run("monitor --once --json");
  EXPECT_EQ(lost.status, 0) << lost.err;
  EXPECT_EQ(nlohmann::json::parse(lost.out),
            nlohmann::json({{"total", 90}, {"before", 100}, {"change", -10}, {"isLost", true}}));
  EXPECT_THAT(lost.err, HasSubstr("100 then, 90 now"));
  EXPECT_THAT(History(), MatchesRegex("\\[.*\\] 100\n\\[.*\\] 90"));
}

// A token lasts for an hour: the call renews it, counts all the same, and keeps the new one.
TEST_F(MonitorCall, RenewsTheToken) {
  SignIn();
  ASSERT_EQ(Run("settings set OnlineOneNoteAccessToken stale").status, 0);
  const Output done = Run("--explain monitor --once");
  EXPECT_EQ(done.out, "100 pages\n") << done.err;
  EXPECT_THAT(done.err, HasSubstr("monitor: 3 requests"));
  EXPECT_THAT(Run("--explain monitor --once").err, HasSubstr("monitor: 1 requests"));
}

// What cannot be counted is told, and leaves the history as it is.
TEST_F(MonitorCall, TellsWhyThereIsNoTotal) {
  EXPECT_EQ(Run("monitor").status, 2);
  Output refused = Run("monitor --once");
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("nobody is signed in"));
  SignIn();
  Serve(0, 503);
  refused = Run("monitor --once --json");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.out, "");
  EXPECT_THAT(refused.err, HasSubstr("status 503"));
  Know("nobody");
  EXPECT_THAT(Run("monitor --once").err, HasSubstr("status 401"));
  EXPECT_EQ(counts(), 3) << "one try, and one with a fresh token";
  server.Stop();
  refused = Run("monitor --once");
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("gave no number of pages ("));
  EXPECT_EQ(History(), "");
}

}  // namespace
}  // namespace quill::cli
