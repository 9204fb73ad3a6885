#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/atomic_file.h"
#include "platform/posix/local_channel.h"
#include "x11/x11_world.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using x11_test::ChildProcess;
using x11_test::Eventually;

class ProgramTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "quill-ui-XXXXXX").string();
    folder = ::mkdtemp(name.data());
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    ::setenv("QUILL_ROOT", (folder / "root").c_str(), 1);
    ::setenv("QT_LOGGING_RULES", "*=false", 1);
  }
  void TearDown() override {
    menu.reset();
    fs::remove_all(folder);
  }

  /// Starts the program and waits until it answers.
  void StartMenu(std::vector<std::string> more = {}) {
    std::vector<std::string> command = {QUILLMENU_PROGRAM};
    command.insert(command.end(), more.begin(), more.end());
    menu = world.Start(command);
    const fs::path channel = *platform::LocalChannelPath(folder / "root");
    ASSERT_TRUE(
        Eventually([&] { return platform::AskLocalChannel(channel, R"({"ping":true})", 1s).ok(); }, 30s));
  }

  /// Runs `quill` and returns its exit status; its words are in `said`.
  int Quill(const std::string& words) {
    const std::string file = (folder / "said").string();
    const int status = std::system((QUILL_PROGRAM " " + words + " >'" + file + "' 2>&1 </dev/null").c_str());
    said = ReadFile(file).ValueOr("");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string Maps() const { return ReadFile("/proc/" + std::to_string(menu->pid()) + "/maps").ValueOr(""); }

  x11_test::X11World world;
  fs::path folder;
  std::unique_ptr<ChildProcess> menu;
  std::string said;
};

// The web engine costs 85 MB and 65 ms: it must not be there before somebody opens a web view.
TEST_F(ProgramTest, LoadsTheWebEngineOnlyForAWebView) {
  StartMenu();
  EXPECT_THAT(Maps(), Not(HasSubstr("WebEngine")));
  EXPECT_THAT(Maps(), HasSubstr("libQt6Widgets"));
  menu.reset();
  StartMenu({"--practice"});
  EXPECT_TRUE(Eventually([this] { return Maps().find("WebEngineCore") != std::string::npos; }, 30s));
}

// Two icons would do everything twice; the second start says that the first is there.
TEST_F(ProgramTest, RunsOnceAUser) {
  StartMenu();
  const auto second = world.Start({QUILLMENU_PROGRAM});
  EXPECT_TRUE(Eventually([&] { return !second->Running(); }, 20s));
  EXPECT_TRUE(menu->Running());
}

// A desktop's own keyboard settings call actions through the command line: the live selection must change.
TEST_F(ProgramTest, DoesWhatTheCommandLineAsksOnTheLiveSelection) {
  StartMenu();
  EXPECT_EQ(Quill("run upper-case"), 1);
  EXPECT_THAT(said, HasSubstr("OneNote was not found"));
  const auto window = world.Adversary();
  EXPECT_EQ(Quill("--explain run upper-case"), 0) << said;
  EXPECT_THAT(said, HasSubstr("target: x11"));
  EXPECT_THAT(said, Not(HasSubstr("COPIED"))) << "page content in the explanation";
  EXPECT_THAT(window->WaitForLine("pasted "), HasSubstr("<p>COPIED</p>"));
  EXPECT_EQ(Quill("trigger menuitemwordcountclick"), 1);
  EXPECT_THAT(said, HasSubstr("not built yet"));
}

// A setting that the command line changes must hold in the running program at once, and survive its own
// saves.
TEST_F(ProgramTest, SeesSettingsChangedByTheCommandLine) {
  StartMenu();
  const auto window = world.Adversary({"title=Notes of mine"});
  EXPECT_EQ(Quill("run upper-case"), 1);
  EXPECT_EQ(Quill("settings set TargetWindowPattern 'notes of'"), 0) << said;
  EXPECT_EQ(Quill("run upper-case"), 0) << said;
}

// A damaged settings file is kept, told once, and does not keep the program from starting.
TEST_F(ProgramTest, StartsWithADamagedSettingsFile) {
  const fs::path support = folder / "root/local/Library/Application Support/Quillworks/Quill Menu";
  fs::create_directories(support);
  std::ofstream(support / "quillapp.plist") << "<plist><dict><key>half";
  StartMenu();
  EXPECT_EQ(Quill("doctor"), 0);
  EXPECT_THAT(said, HasSubstr("quillapp.plist"));
}

}  // namespace
}  // namespace quill::ui
