#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "content/text_between.h"
#include "platform/curl/curl_http.h"
#include "practice/service/practice_service.h"
#include "practice_service/made_up_library.h"

namespace quill::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// The program as its user starts it, through `quill`, on a folder of its own.
class Program : public testing::Test {
 protected:
  Program() {
    ::setenv("no_proxy", "127.0.0.1", 1);
    std::string pattern = (fs::temp_directory_path() / "quill-practice-XXXXXX").string();
    m_folder = mkdtemp(pattern.data());
  }
  ~Program() override {
    if (m_pid > 0) (void)End(SIGKILL);
    fs::remove_all(m_folder);
  }

  void Start(std::vector<std::string> words) {
    words.insert(words.begin(), {QUILL_PROGRAM, "practice", "--data", (m_folder / "pages").string()});
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    m_pid = ::fork();
    if (m_pid == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::dup2(ends[1], STDERR_FILENO);
      ::execv(arguments[0], arguments.data());
      ::_exit(127);
    }
    ::close(ends[1]);
    m_output = ends[0];
  }

  /// What it says until this, or until it ends.
  std::string OutputUpTo(const std::string& last) {
    std::string output;
    char c = 0;
    while (output.find(last) == std::string::npos && ::read(m_output, &c, 1) == 1) output += c;
    return output;
  }

  int End(int signal) {
    if (signal != 0) ::kill(m_pid, signal);
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    ::close(m_output);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  fs::path m_folder;
  pid_t m_pid = -1;
  int m_output = -1;
};

// What it prints is enough for another program to find it; a new folder has pages at once.
TEST_F(Program, ServesAFolderUntilItIsToldToEnd) {
  Start({"--fault", "throttled@/sections"});
  const std::string output = OutputUpTo("QUILL_CLIENT_ID=");
  platform::CurlHttp http;
  platform::HttpRequest request;
  request.url = std::string(content::TextBetween(output, "QUILL_GRAPH_URL=", "\n"));
  EXPECT_EQ(request.url, content::TextBetween(output, "QUILL_SIGNIN_URL=", "\n"));
  request.url += "/v1.0/me/onenote/notebooks";
  const auto me = http.Send(request);
  ASSERT_TRUE(me.ok()) << output;
  EXPECT_EQ(me->status, 401);
  request.url += "/sections";
  EXPECT_EQ(http.Send(request)->status, 429);
  EXPECT_FALSE(fs::is_empty(m_folder / "pages"));
  EXPECT_EQ(End(SIGTERM), 0);
}

TEST_F(Program, TellsWhyItDoesNotStart) {
  Start({"--fault", "nonsense"});
  EXPECT_THAT(OutputUpTo("FAULT?"), HasSubstr("\"nonsense\" names no fault"));
  EXPECT_EQ(End(0), 2);

  const auto other = practice::PracticeService::Start(std::make_unique<MadeUpLibrary>(), {});
  Start({"--port", std::to_string((*other)->Port())});
  EXPECT_THAT(OutputUpTo("never"), HasSubstr("is taken"));
  EXPECT_EQ(End(0), 1);
}

}  // namespace
}  // namespace quill::test
