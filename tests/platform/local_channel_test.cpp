#include "platform/posix/local_channel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <future>

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

class LocalChannel : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "quill-channel-XXXXXX").string();
    m_folder = ::mkdtemp(name.data());
    ::setenv("XDG_RUNTIME_DIR", m_folder.c_str(), 1);
  }
  void TearDown() override { fs::remove_all(m_folder); }

  fs::path m_folder;
};

// The whole way: one line there, one line back, again and again, also long ones.
TEST_F(LocalChannel, AnswersLines) {
  const fs::path path = *LocalChannelPath("/some/root");
  auto server =
      LocalChannelServer::Listen(path, [](std::string_view line) { return "<" + std::string(line) + ">"; });
  ASSERT_TRUE(server.ok()) << server.error();
  for (const std::string& line : {std::string("a"), std::string(), std::string(500000, 'x')}) {
    EXPECT_EQ(AskLocalChannel(path, line, std::chrono::seconds(10)).ValueOr("no answer"), "<" + line + ">");
  }
  struct stat info {};
  ASSERT_EQ(::stat(path.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 077, 0u) << "others may connect";
}

// One application a user: the second finds the first; a dead one's socket is in nobody's way.
TEST_F(LocalChannel, OneListenerAtATime) {
  const fs::path path = *LocalChannelPath("");
  std::ofstream(path) << "left behind";
  {
    auto first = LocalChannelServer::Listen(path, [](std::string_view) { return std::string("first"); });
    ASSERT_TRUE(first.ok()) << first.error();
    EXPECT_FALSE(LocalChannelServer::Listen(path, nullptr).ok());
    EXPECT_EQ(AskLocalChannel(path, "?", std::chrono::seconds(10)).ValueOr(""), "first");
  }
  EXPECT_FALSE(fs::exists(path));
  EXPECT_FALSE(AskLocalChannel(path, "?", std::chrono::seconds(1)).ok());
}

// A command may wait for its user for minutes: meanwhile other requests, and a client that says nothing, must
// not wait for it.
TEST_F(LocalChannel, ASlowAnswerKeepsNobodyOut) {
  const fs::path path = *LocalChannelPath("");
  std::promise<void> go;
  auto server = LocalChannelServer::Listen(path, [&](std::string_view line) {
    if (line == "slow") go.get_future().wait();
    return std::string(line);
  });
  ASSERT_TRUE(server.ok()) << server.error();
  auto slow = std::async(std::launch::async,
                         [&] { return AskLocalChannel(path, "slow", std::chrono::seconds(30)).ValueOr(""); });
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(AskLocalChannel(path, "quick", std::chrono::seconds(10)).ValueOr("no answer"), "quick");
  }
  go.set_value();
  EXPECT_EQ(slow.get(), "slow");
}

// A root's path may be longer than a socket address; a folder that others can enter is refused.
TEST_F(LocalChannel, PathsAreShortAndPrivate) {
  const fs::path longRoot = "/" + std::string(3000, 'r');
  EXPECT_LT(LocalChannelPath(longRoot)->filename().string().size(), 30u);
  EXPECT_NE(*LocalChannelPath(longRoot), *LocalChannelPath("/other"));
  fs::permissions(m_folder / "quillmenu", fs::perms::all);
  EXPECT_FALSE(LocalChannelPath("").ok());
}

}  // namespace
}  // namespace quill::platform
