#include "platform/posix/xdg_workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <thread>

#include "base/atomic_file.h"

namespace quill::platform {
namespace {

namespace fs = std::filesystem;

/// A PATH with tools of the test's own that write down what they were called with.
class XdgWorkspaceTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "quill-xdg-XXXXXX").string();
    folder = ::mkdtemp(name.data());
    m_path = std::getenv("PATH");
    ::setenv("PATH", (folder.string() + ":/bin:/usr/bin").c_str(), 1);
  }
  void TearDown() override {
    ::setenv("PATH", m_path.c_str(), 1);
    fs::remove_all(folder);
  }

  void Tool(const std::string& name, int status) const {
    std::ofstream(folder / name) << "#!/bin/sh\nprintf '" << name << "|%s' \"$*\" > " << folder.string()
                                 << "/part; mv " << folder.string() << "/part " << folder.string()
                                 << "/called\nexit " << status << "\n";
    fs::permissions(folder / name, fs::perms::owner_all);
  }

  /// What the tool was called with, once it has been.
  std::string Called() const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!fs::exists(folder / "called") && std::chrono::steady_clock::now() < deadline)
      std::this_thread::yield();
    std::string words = ReadFile(folder / "called").ValueOr("never called");
    fs::remove(folder / "called");
    return words;
  }

  fs::path folder;
  XdgWorkspace workspace;

 private:
  std::string m_path;
};

// A link is data: no shell may see it, and nothing in it may be changed on the way.
TEST_F(XdgWorkspaceTest, HandsAddressesOnAsTheyStand) {
  Tool("xdg-open", 0);
  const std::string link = "onenote:https://d.docs.live.net/a b/$(touch x)`y`.one#T&section-id={1-2}&end";
  EXPECT_TRUE(workspace.OpenUrl(link).ok());
  EXPECT_EQ(Called(), "xdg-open|" + link);
  for (const char* wrong : {"", "no scheme", "/etc/passwd", "--help", ":x", "./a:b"}) {
    EXPECT_FALSE(workspace.OpenUrl(wrong).ok()) << wrong;
  }
}

// A missing tool or file is an answer that the user can read.
TEST_F(XdgWorkspaceTest, SaysWhatIsMissing) {
  ::setenv("PATH", folder.c_str(), 1);
  EXPECT_THAT(workspace.OpenUrl("https://a.example").error(), testing::HasSubstr("xdg-open"));
  EXPECT_THAT(workspace.OpenFile("/no/such/file").error(), testing::HasSubstr("/no/such/file"));
  EXPECT_THAT(workspace.Reveal("/no/such/file").error(), testing::HasSubstr("/no/such/file"));
}

// The file is shown selected where the desktop can, else its folder is opened.
TEST_F(XdgWorkspaceTest, RevealsTheFileOrItsFolder) {
  const fs::path file = folder / "a, \xC3\xA9 'b'.one";
  std::ofstream(file) << "x";
  Tool("xdg-open", 0);
  Tool("dbus-send", 0);
  EXPECT_TRUE(workspace.Reveal(file).ok());
  const std::string escaped = folder.string() + "/a%2C%20%C3%A9%20'b'.one";
  EXPECT_THAT(Called(), testing::EndsWith("ShowItems array:string:file://" + escaped + " string:"));
  Tool("dbus-send", 1);
  EXPECT_TRUE(workspace.Reveal(file).ok());
  std::string words = Called();
  if (words.starts_with("dbus-send")) words = Called();
  EXPECT_EQ(words, "xdg-open|" + folder.string());
}

}  // namespace
}  // namespace quill::platform
