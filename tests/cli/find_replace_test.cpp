#include <gmock/gmock.h>

#include <mutex>
#include <nlohmann/json.hpp>

#include "platform/web_server.h"
#include "quill_program.h"

namespace quill::cli {
namespace {

using testing::HasSubstr;

/// Somebody who is signed in, and one page at a service of the test's own.
class FindReplaceCall : public Quill {
 protected:
  void SetUp() override {
    Quill::SetUp();
    Answer("/common/oauth2/v2.0/token", R"({"access_token":"at-1","refresh_token":"rt-1"})");
    Answer("/v1.0/me", R"({"userPrincipalName":"ada@outlook.com","id":"7c1f"})");
    Answer(
        "/v1.0/me/onenote/notebooks",
        R"({"value":[{"isShared":false,"links":{"oneNoteClientUrl":{"href":"https://docs.test/7c1f/N"}}}]})");
    Answer(".*/sections", R"({"value":[{"id":"s-1"}]})");
    Answer(".*/sections/s-1/pages", R"({"value":[{"id":"p-1","links":{"oneNoteClientUrl":{"href":)"
                                    R"("onenote:https://docs.test/7c1f/N/A.one#T&page-id=8A&end"}}}]})");
    Answer(".*/pages/p-1/content",
           "<html><head><title>T</title></head><body><div id=\"div:1\"><p id=\"p:1\">"
           "old, Old</p><p id=\"p:2\">old</p></div></body></html>");
    server.pages.Patch(".*/pages/p-1/content", [this](const auto& request, auto& response) {
      const std::lock_guard lock(m_mutex);
      m_changes.push_back(request.body);
      response.status = 204;
    });
    server.Start();
    for (const char* name : kAddresses) ::setenv(name, server.address().c_str(), 1);
    ::setenv("QUILL_DOCUMENT_HOST", "docs.test", 1);
    ::setenv("QUILL_CLIENT_ID", "11112222-3333-4444-5555-666677778888", 1);
    ASSERT_EQ(Run("signin --code M.1").status, 0);
  }
  void TearDown() override {
    for (const char* name : kAddresses) ::unsetenv(name);
    ::unsetenv("QUILL_DOCUMENT_HOST");
    ::unsetenv("QUILL_CLIENT_ID");
    Quill::TearDown();
  }

  Output Replace(const std::string& words) {
    return Run("online 10002 --link 'onenote:https://docs.test/7c1f/N/A.one#T&page-id={8A}&end' " + words);
  }
  std::vector<std::string> Changes() {
    const std::lock_guard lock(m_mutex);
    return m_changes;
  }

 private:
  static constexpr const char* kAddresses[] = {"QUILL_GRAPH_URL", "QUILL_IDENTITY_URL", "QUILL_SIGNIN_URL"};

  void Answer(const std::string& path, const std::string& body) {
    const auto answer = [body](const auto&, auto& response) { response.set_content(body, "text/plain"); };
    server.pages.Get(path, answer);
    server.pages.Post(path, answer);
  }

  test::WebServer server;
  std::mutex m_mutex;
  std::vector<std::string> m_changes;
};

// A script sees what would be sent before it is sent, and afterwards the same.
TEST_F(FindReplaceCall, PrintsWhatItSends) {
  const Output trial = Replace("--find old --replace 'R&D' --dry-run");
  EXPECT_EQ(trial.status, 0) << trial.err;
  EXPECT_EQ(trial.err, "quill: 3 matches in 2 elements\n");
  EXPECT_TRUE(Changes().empty());
  const Output sent = Replace("--find old --replace 'R&D'");
  EXPECT_EQ(sent.out, trial.out);
  ASSERT_EQ(Changes().size(), 1u);
  EXPECT_EQ(nlohmann::json::parse(Changes()[0]), nlohmann::json::parse(sent.out));
  EXPECT_THAT(Changes()[0], HasSubstr("<p>R&amp;D, R&amp;D</p>"));

  const Output object = Replace("--find Old --replace '' --match-case --json");
  EXPECT_EQ(object.err, "quill: 1 match in 1 element\n");
  const nlohmann::json expected = {
      {"command", 10002},
      {"matches", 1},
      {"elements", 1},
      {"isSent", true},
      {"changes", {{{"target", "p:1"}, {"action", "replace"}, {"content", "<p>old, </p>"}}}},
      {"messages", nlohmann::json::array()},
      {"requests", 4}};
  EXPECT_EQ(nlohmann::json::parse(object.out), expected);
}

// Nothing found is a failure that a script can tell from a wrong call, which sends nothing.
TEST_F(FindReplaceCall, TellsNothingFoundFromAWrongCall) {
  const Output none = Replace("--find new --replace x");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.out + none.err, "quill: Nothing more was found.\n");
  const std::pair<const char*, const char*> kWrong[] = {
      {"--replace x", "--find"},
      {"--find old", "--replace"},
      {"--find '' --replace x", "--find"},
      {"--find \"$(printf '\\303')\" --replace x", "--find"}};
  for (const auto& [words, flag] : kWrong) {
    const Output wrong = Replace(words);
    EXPECT_EQ(wrong.status, 2) << words;
    EXPECT_THAT(wrong.err, HasSubstr(flag)) << words;
  }
  EXPECT_EQ(Run("online 10003 --link x --find old").status, 2);
  EXPECT_TRUE(Changes().empty());
}

}  // namespace
}  // namespace quill::cli
