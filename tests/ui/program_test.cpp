#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "program_world.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;
using x11_test::Eventually;

// The web engine costs 85 MB and 65 ms: it must not be there before somebody opens a web view.
TEST_F(ProgramTest, LoadsTheWebEngineOnlyForAWebView) {
  StartMenu();
  EXPECT_THAT(Maps(), Not(HasSubstr("WebEngine")));
  EXPECT_THAT(Maps(), HasSubstr("libQt6Widgets"));
  menu.reset();
  StartMenu({"--practice"});
  EXPECT_TRUE(Eventually([this] { return Maps().find("WebEngineCore") != std::string::npos; }, 30s));
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
  EXPECT_EQ(Quill("trigger packagenotebooks"), 1);
  EXPECT_THAT(said, HasSubstr("OneNote folder not found!!"));
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
