#include <gtest/gtest.h>

#include <any>
#include <filesystem>
#include <string>

#include "base/atomic_file.h"
#include "shell/command_world.h"
#include "shell/temporary_folder.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using platform::recording::Contents;
using test::CommandWorld;
using test::Copied;

constexpr std::int64_t kView = 13;
constexpr std::int64_t kOpen = 14;

class PictureCommands : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder.path() / "Documents");
    fs::create_directories(folder.path() / "Tmp");
  }

  /// Runs a command on a selection and returns what the user saw: the file that was shown or opened, or the
  /// message.
  std::string Run(std::int64_t command, const Contents& selection, const std::string& refusal = "") {
    CommandWorld world(selection);
    world.globals.folders.DocumentsFolder = folder.path() / "Documents";
    world.globals.folders.TmpFolder = folder.path() / "Tmp";
    if (!refusal.empty()) world.recording.RefuseToOpen(refusal);
    NSOneNoteMain(world.services, world.globals).Run(command);
    EXPECT_TRUE(world.recording.pastes().empty());
    EXPECT_EQ(world.recording.clipboard().text, "the user's own");
    EXPECT_LE(world.recording.windows().size() + world.recording.messages().size(), 1u);
    if (!world.recording.messages().empty()) return world.recording.messages()[0];
    if (!world.recording.windows().empty()) {
      return "view " + std::any_cast<ImageRequest>(world.recording.windows()[0]).file.string();
    }
    const std::string transcript = world.recording.transcript();
    const std::size_t at = transcript.find("open file ");
    return at == std::string::npos ? "nothing" : transcript.substr(at, transcript.find("; ", at) - at);
  }

  std::string Run(std::int64_t command, const std::string& source) {
    return Run(command,
               Copied("<p>a<b><img alt=x src=\"" + source + "\"></b><img src=\"file:///two.png\"></p>"));
  }

  std::string Text(std::string_view key, const std::string& argument = "") {
    return StringTable().Format(key, {argument});
  }

  test::TemporaryFolder folder;
};

// The picture that the user pointed at is the one that opens, whichever way its address is written.
TEST_F(PictureCommands, TakeTheFirstPictureFromItsFile) {
  const std::string file = folder.Write("my pic é.PNG", "png").string();
  const std::string inUrl = folder.path().string() + "/my%20pic%20%C3%A9.PNG";
  for (const std::string& source :
       {"file://" + inUrl, "file://" + inUrl.substr(1), "file://localhost" + inUrl}) {
    EXPECT_EQ(Run(kView, source), "view " + file) << source;
    EXPECT_EQ(Run(kOpen, source), "open file " + file) << source;
  }
}

// A picture inside the page becomes a file that other programs can open.
TEST_F(PictureCommands, SaveAPictureThatIsInThePage) {
  const fs::path saved = folder.path() / "Documents" / "QuillMenu.png";
  EXPECT_EQ(Run(kView, "data:image/png;base64,iVBORw=="), "view " + saved.string());
  EXPECT_EQ(ReadFile(saved).ValueOr(""), "\x89PNG");
  EXPECT_EQ(Run(kOpen, "data:image/svg+xml;base64,PHN2Zy8+"),
            "open file " + (folder.path() / "Documents" / "QuillMenu.svg").string());
}

// Pages come from others: no folder, device, foreign address or damaged text may be taken for a picture, and
// nothing that the system would run may be handed to it.
TEST_F(PictureCommands, RefuseWhatIsNoPicture) {
  const std::string program = folder.Write("run.desktop", "[Desktop Entry]").string();
  const std::string bare = folder.Write("program", "#!/bin/sh").string();
  const std::string documents = (folder.path() / "Documents").string();
  const std::string select = Text("errSelectImage");
  for (const std::int64_t command : {kView, kOpen}) {
    EXPECT_EQ(Run(command, Copied("<p>no picture</p>")), select);
    EXPECT_EQ(Run(command, ""), select);
    EXPECT_EQ(Run(command, "https://example.com/a.png"), select);
    EXPECT_EQ(Run(command, "data:text/html;base64,PGI+"), select);
    EXPECT_EQ(Run(command, "data:image/desktop;base64,W10="), select);
    EXPECT_EQ(Run(command, "data:image/../../x.png;base64,W10="), select);
    EXPECT_EQ(Run(command, "data:image/png;base64,***"), Text("errPictureSave", documents));
    EXPECT_EQ(Run(command, "file:///dev/null"), Text("errPictureGone", "/dev/null"));
    EXPECT_EQ(Run(command, "file://" + documents), Text("errPictureGone", documents));
    EXPECT_EQ(Run(command, "file:///no/such.png"), Text("errPictureGone", "/no/such.png"));
    EXPECT_NE(Run(command, "file://" + program + "%00.png").find(program), 0u);
  }
  EXPECT_TRUE(fs::is_empty(documents));
  EXPECT_EQ(Run(kOpen, "file://" + program), Text("errPictureName", program));
  EXPECT_EQ(Run(kOpen, "file://" + bare), Text("errPictureName", bare));
}

// A selection that is one picture comes as a picture, without HTML around it.
TEST_F(PictureCommands, TakeThePictureFromThePasteboard) {
  const fs::path file = folder.path() / "Tmp" / "quill.tif";
  const fs::path other = folder.Write("precious", "precious");
  fs::create_symlink(other, file);
  const Contents picture{std::nullopt, std::nullopt, "\x89PNG bytes"};
  EXPECT_EQ(Run(kView, picture), "view " + file.string());
  EXPECT_EQ(Run(kOpen, picture), "open file " + file.string());
  EXPECT_EQ(ReadFile(file).ValueOr(""), "\x89PNG bytes");
  EXPECT_EQ(test::Mode(file), 0600);
  EXPECT_EQ(ReadFile(other).ValueOr(""), "precious");
}

// When the copy itself failed, "select a picture" would send the user the wrong way.
TEST_F(PictureCommands, TellWhyTheCopyFailed) {
  for (const std::int64_t command : {kView, kOpen}) {
    CommandWorld world;
    world.recording.FailScripts({platform::ScriptProblem::TargetMissing});
    NSOneNoteMain(world.services, world.globals).Run(command);
    EXPECT_EQ(world.recording.messages(), std::vector<std::string>{Text("errScriptTargetMissing")});
  }
}

// Without a picture, and when it cannot be kept or opened, the user is told; the clipboard that they had
// before is never mistaken for the selection.
TEST_F(PictureCommands, TellWhyThereIsNoPicture) {
  for (const std::int64_t command : {kView, kOpen}) {
    EXPECT_EQ(Run(command, Contents{}), Text("errSelectImage"));
    EXPECT_EQ(Run(command, Contents{std::nullopt, "words", std::nullopt}), Text("errSelectImage"));
    EXPECT_EQ(Run(command, Contents{std::nullopt, std::nullopt, ""}), Text("errSelectImage"));
  }
  const std::string file = folder.Write("a.png", "png").string();
  EXPECT_EQ(Run(kOpen, Copied("<img src=\"file://" + file + "\">"), "no program"),
            StringTable().Format("errPictureOpen", {file, "no program"}));
  fs::remove_all(folder.path() / "Tmp");
  EXPECT_NE(Run(kView, Contents{std::nullopt, std::nullopt, "png"}).find("quill.tif"), std::string::npos);
}

}  // namespace
}  // namespace quill::shell
