#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <mutex>
#include <nlohmann/json.hpp>

#include "base/atomic_file.h"
#include "platform/posix/local_channel.h"
#include "program_world.h"

namespace quill::ui {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using x11_test::Eventually;

/// Everything that a URL class would read as something else, or write in another form.
constexpr const char* kLink = "qvar://%ONEDRIVE%/a b#c?d=%41&e=ü\"'\\";
constexpr const char* kPlainLink = "qvar://%ONEDRIVE%/a b#c";

/// Stands where the running program listens, and keeps what it is told.
class Listener {
 public:
  explicit Listener(const fs::path& channel) {
    auto server = platform::LocalChannelServer::Listen(channel, [this](std::string_view line) {
      const std::scoped_lock lock(m_mutex);
      m_requests.push_back(json::parse(line));
      return std::string(R"({"ok":true})");
    });
    if (!server.ok()) throw std::runtime_error(server.error());
    m_server = std::move(*server);
  }

  std::vector<json> Requests() {
    const std::scoped_lock lock(m_mutex);
    return m_requests;
  }

 private:
  std::mutex m_mutex;
  std::vector<json> m_requests;
  std::unique_ptr<platform::LocalChannelServer> m_server;
};

/// A desktop on which the program is installed: its desktop file is known and the program on the path.
class DesktopLinkTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    const fs::path applications = folder / "data/applications";
    for (const fs::path& one : {applications, folder / "bin", folder / "config", folder / "home"})
      fs::create_directories(one);
    fs::copy_file(QUILL_DESKTOP_FILE, applications / "quillmenu.desktop");
    fs::create_symlink(QUILLMENU_PROGRAM, folder / "bin/quillmenu");
    m_path = std::getenv("PATH");
    ::setenv("PATH", ((folder / "bin").string() + ":" + m_path).c_str(), 1);
    // As the package's installation does it; who handles the links is then found by the desktop file's types.
    ASSERT_EQ(std::system(("update-desktop-database -q '" + applications.string() + "'").c_str()), 0);
    ASSERT_EQ(std::system("xdg-mime default quillmenu.desktop x-scheme-handler/qvar"), 0);
  }
  void TearDown() override {
    ::setenv("PATH", m_path.c_str(), 1);
    ProgramTest::TearDown();
  }

 private:
  std::string m_path;
};

/// That desktop with a program for texts and scripts, which writes down what it is given.
class OpenedLinkTest : public DesktopLinkTest {
 protected:
  void SetUp() override {
    DesktopLinkTest::SetUp();
    Write("bin/recorder", "#!/bin/sh\necho \"$1\" >>'" + (folder / "opened").string() + "'\n");
    fs::permissions(folder / "bin/recorder", fs::perms::owner_all);
    Write("data/applications/recorder.desktop",
          "[Desktop Entry]\nType=Application\nName=Recorder\nExec=recorder %f\n"
          "MimeType=text/plain;text/x-shellscript;application/x-shellscript;\n");
    ASSERT_EQ(
        std::system(
            "xdg-mime default recorder.desktop text/plain text/x-shellscript application/x-shellscript"),
        0);
    Write("root/home/Notes/ä b#c.txt", "a note\n");
    Write("root/home/run.sh", "#!/bin/sh\n");
  }

  void Write(const std::string& name, const std::string& text) const {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name) << text;
  }
  std::string Opened() const { return ReadFile(folder / "opened").ValueOr(""); }
  std::string Line(const std::string& name) const { return (folder / "root/home" / name).string() + "\n"; }
};

// A link's text is a path with variables: one changed character opens another file.
TEST_F(ProgramTest, HandsALinkOverAsItCame) {
  Listener listener(Channel());
  EXPECT_EQ(StartAgain({kLink}), 0);
  EXPECT_THAT(listener.Requests(), ElementsAre(json{{"url", kLink}}));
}

// The user sees what a click on a link does, whether the program runs or has to be started for it.
TEST_F(ProgramTest, TakesALinkWhileItRunsAndWhenItStarts) {
  StartMenu({kPlainLink});
  EXPECT_NE(TextOfBox(), "") << "the start's own link";
  EXPECT_EQ(StartAgain({kPlainLink}), 0);
  EXPECT_NE(TextOfBox(), "") << "a link for the one that runs";
}

// Other programs open links through the desktop, which must find this one and pass the text on whole.
TEST_F(DesktopLinkTest, GetsLinksThroughTheDesktop) {
  Listener listener(Channel());
  const auto opener = world.Start({"xdg-open", kPlainLink});
  EXPECT_TRUE(Eventually([&] { return !listener.Requests().empty(); }));
  EXPECT_THAT(listener.Requests(), ElementsAre(json{{"url", kPlainLink}}));
}

// The same on desktops whose openers read the desktop file themselves.
TEST_F(DesktopLinkTest, IsWhoTheDesktopAsksForItsLinks) {
  ASSERT_EQ(std::system("xdg-mime query default x-scheme-handler/qvar >\"$XDG_RUNTIME_DIR/handler\""), 0);
  std::string handler;
  std::ifstream(folder / "handler") >> handler;
  EXPECT_EQ(handler, "quillmenu.desktop");
}

// The whole way: a click anywhere, the desktop, the running program, the file's own application.
TEST_F(OpenedLinkTest, OpensTheFileOfALinkThatIsClickedAnywhere) {
  StartMenu();
  const auto opener = world.Start({"xdg-open", "qvar://%USERPROFILE%/Notes/%C3%A4%20b%23c.txt"});
  EXPECT_TRUE(Eventually([&] { return Opened() == Line("Notes/ä b#c.txt"); })) << Opened();
  EXPECT_FALSE(IsThere(kBoxTitle));
}

// A page must not start programs by a link: the answer that Return gives is NO.
TEST_F(OpenedLinkTest, AsksBeforeItOpensAScript) {
  StartMenu();
  for (const std::vector<xcb_keysym_t>& keys : {std::vector{kReturn}, {kEscape}, {kRight, kReturn}}) {
    EXPECT_EQ(Opened(), "");
    EXPECT_EQ(StartAgain({"qvar://%USERPROFILE%/run.sh"}), 0);
    ASSERT_TRUE(world.BecomesActive(kBoxTitle));
    for (const xcb_keysym_t key : keys) Tap(key);
    EXPECT_TRUE(Disappears(kBoxTitle));
    EXPECT_TRUE(CommandEnds());
  }
  EXPECT_TRUE(Eventually([&] { return Opened() == Line("run.sh"); })) << Opened();
}

}  // namespace
}  // namespace quill::ui
