#include "shell/package_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "files/archive_bytes.h"
#include "files/store/a4_section.h"
#include "files/store_world.h"
#include "shell/command_table.h"
#include "shell/command_world.h"
#include "shell/package_requests.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using test::CabinetOf;
using test::CommandWorld;
using test::StoreWorld;
using test::ZipOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::string_view kNativeSection =
    "0123456789abcdef0123456789abcdef0123456789abcdef\x3F\xDD\x9A\x10\x1B\x91\xF5\x49\xA5\xD0\x17\x91\xED\xC8"
    "\xAE\xD8";

/// The recorded screen, and what its open panels were asked for.
struct NotedPanels final : platform::UserInterface {
  explicit NotedPanels(platform::UserInterface& to) : ui(to) {}
  void ShowMessage(std::string_view text) override { ui.ShowMessage(text); }
  bool AskYesNo(std::string_view question) override { return ui.AskYesNo(question); }
  std::optional<fs::path> AskSavePath(const platform::SavePanel& panel) override {
    return ui.AskSavePath(panel);
  }
  std::vector<fs::path> AskOpenPaths(const platform::OpenPanel& panel) override {
    panels.push_back(panel);
    return ui.AskOpenPaths(panel);
  }
  std::optional<std::string> AskText(const platform::TextQuestion& question) override {
    return ui.AskText(question);
  }
  std::unique_ptr<platform::Progress> BeginProgress(std::string_view title) override {
    return ui.BeginProgress(title);
  }
  void ShowWindow(std::any request) override { ui.ShowWindow(std::move(request)); }
  std::any RunWindow(std::any request) override { return ui.RunWindow(std::move(request)); }

  platform::UserInterface& ui;
  std::vector<platform::OpenPanel> panels;
};

/// The actions on a store of the test's own, with a recorded desktop and real programs.
struct PackageActions : testing::Test {
  PackageActions() {
    desk.globals.folders.roots.userLibrary = store.library;
    desk.globals.folders.roots.localLibrary = store.folder.path() / "local" / "Library";
    desk.globals.folders.TmpFolder = store.temporary;
    services.engines.processes = std::make_shared<platform::PosixProcessRunner>();
    desk.recording.NameScript(desk.globals.scripts.ScriptCommandO, "command-o");
  }

  /// Runs an action; what was seen since the test began.
  std::string Do(std::string_view action) {
    const CommandRow* row = FindCommand(action);
    CommandContext context{services, desk.globals, row->argument};
    row->handler(context, *row);
    return desk.recording.transcript();
  }
  std::string Text(std::string_view key) { return std::string(desk.strings.Text(key)); }
  std::string LastMessage() {
    return desk.recording.messages().empty() ? "no message" : desk.recording.messages().back();
  }
  void AnswerFile(const std::string& name, std::string_view bytes) {
    desk.recording.AnswerOpenPanel({store.Put(store.packages / name, bytes)});
  }
  /// Answers the window with its own list, as far as these notebooks are in it.
  void AnswerWindow(const std::vector<std::string>& names) {
    PackageChoice choice{{}, store.packages};
    for (const std::string& name : names) choice.notebooks.push_back({true, name, store.cache / name});
    desk.recording.AnswerDialog<PackageRequest>(choice);
  }

  StoreWorld store;
  CommandWorld desk;
  NotedPanels screen{desk.recording};
  Services services{desk.recording, desk.recording, desk.recording, screen,
                    desk.clock,     desk.strings,   desk.explain,   desk.log};
};

// The whole way: the notebooks of the store are offered, the chosen ones packed, success told.
TEST_F(PackageActions, PackTheChosenNotebooks) {
  store.Version("Work", "A", "x");
  store.Version("Old.quillpkg", "B", "x");
  AnswerWindow({"Work"});
  EXPECT_THAT(Do("PackageNotebooks"), EndsWith("message " + Text("msgCompletePackage")));
  const auto request = std::any_cast<PackageRequest>(desk.recording.windows().at(0));
  ASSERT_EQ(request.notebooks.size(), 1u);
  EXPECT_EQ(request.notebooks[0].name, "Work");
  EXPECT_TRUE(fs::exists(store.packages / "Work.quillpkg"));
  AnswerWindow({});
  Do("PackageNotebooks");
  EXPECT_EQ(LastMessage(), Text("msgCompletePackage")) << "also when nothing was checked";
}

// No success is told when there was none; what was packed before a Cancel is named.
TEST_F(PackageActions, TellWhatCouldNotBePacked) {
  for (const char* name : {"Good", "Junk", "Torn"}) store.Version(name, "A", "x");
  store.Put(store.packages / "Junk.quillpkg", "no package");
  fs::create_symlink("nowhere", store.cache / "Torn" / "B.one (x).one");
  AnswerWindow({"Good", "Junk", "Torn"});
  Do("PackageNotebooks");
  EXPECT_THAT(LastMessage(), StartsWith(desk.strings.Format("errPackage", {"Junk", "zip error: "})));
  EXPECT_THAT(LastMessage(),
              HasSubstr(desk.strings.Format("errPackageIncomplete", {"Torn"}) + "\nB.one (x).one: "));

  const std::size_t before = desk.recording.messages().size();
  desk.recording.CancelProgressAfter(1);
  AnswerWindow({"Good"});
  Do("PackageNotebooks");
  EXPECT_EQ(desk.recording.messages().size(), before) << "who cancels knows it";

  services.engines.processes = nullptr;
  desk.recording.CancelProgressAfter(1000);
  AnswerWindow({"Good"});
  Do("PackageNotebooks");
  EXPECT_THAT(LastMessage(), HasSubstr("zip: programs cannot be run here"));
}

// Without OneNote's store there is nothing to pack, and nowhere to restore to.
TEST_F(PackageActions, NeedOneNotesFolder) {
  EXPECT_EQ(Do("PackageNotebooks"), "message List Notebooks failure. OneNote folder not found!!");
  fs::remove_all(store.library);
  AnswerFile("Work.quillpkg", ZipOf({{"Work/A.one", "a"}}));
  Do("ResoteQuillpkgFile");
  EXPECT_EQ(LastMessage(), "OneNote folder not found!!");
}

// A new OneNote has no section yet: the user shows the folder, and may give up.
TEST_F(PackageActions, AskForTheFolderWhenItIsNotFound) {
  AnswerFile("Work.quillpkg", ZipOf({{"Work/A.one", "a"}}));
  desk.recording.AnswerOpenPanel({store.cache});
  Do("ResoteQuillpkgFile");
  ASSERT_EQ(screen.panels.size(), 2u);
  EXPECT_EQ(screen.panels[1].message, "Choose Backup folder with your language");
  EXPECT_EQ(screen.panels[1].kind, platform::OpenKind::Folders);
  EXPECT_EQ(screen.panels[1].folder, store.library / files::kOneNoteVersionFolder);
  EXPECT_EQ(LastMessage(), Text("msgRestoreSuccess"));
  EXPECT_TRUE(fs::exists(store.cache / "Work.quillpkg" / "Work" / "A.one"));
  fs::remove_all(store.cache / "Work.quillpkg");
  AnswerFile("Work.quillpkg", ZipOf({{"Work/A.one", "a"}}));
  Do("ResoteQuillpkgFile");
  EXPECT_EQ(LastMessage(), "OneNote folder not found!!");
}

// After a success OneNote is brought to its list of notebooks, after a failure it is left alone.
TEST_F(PackageActions, RestorePackages) {
  store.Version("Work", "A", "x");
  AnswerFile("New.quillpkg", ZipOf({{"New/A.one", "a"}}));
  EXPECT_THAT(Do("ResoteQuillpkgFile"), EndsWith("message " + Text("msgRestoreSuccess") + "; run command-o"));
  AnswerFile("Cab.onepkg", CabinetOf("A.one", "a"));
  EXPECT_THAT(Do("ResoteOnepkgFile"), EndsWith("message " + Text("msgRestoreSuccess") + "; run command-o"));
  EXPECT_EQ(*ReadFile(store.cache / "Cab.onepkg" / "A.one"), "a");
  AnswerFile("Junk.quillpkg", "junk");
  Do("ResoteQuillpkgFile");
  EXPECT_THAT(LastMessage(), StartsWith(Text("errRestoreFailure") + "\nEnd-of-central"));
  AnswerFile("Taken.quillpkg", ZipOf({{"A.one", "a"}}));
  store.Put(store.cache / "Taken.quillpkg", "a file in the way");
  EXPECT_THAT(Do("ResoteQuillpkgFile"), EndsWith("; message Create restore folder error!"));
  const std::string cancelled = desk.recording.transcript();
  EXPECT_THAT(Do("ResoteOnepkgFile"), StartsWith(cancelled));
  EXPECT_EQ(LastMessage(), "Create restore folder error!") << "a cancelled panel says nothing";
  EXPECT_EQ(screen.panels.front().message, "Choose a .quillpkg file");
  EXPECT_THAT(screen.panels.front().extensions, ElementsAre("quillpkg"));
  EXPECT_EQ(screen.panels.back().message, "Choose a .onepkg file");
}

// Extracting needs no OneNote, and shows the folder with the files.
TEST_F(PackageActions, ExtractACabinet) {
  AnswerFile("Cab.onepkg", CabinetOf("A.one", "a"));
  const fs::path target = store.folder.path() / "extracted";
  fs::create_directory(target);
  desk.recording.AnswerOpenPanel({target});
  EXPECT_THAT(Do("ExtractOnepkgFile"), EndsWith("; open file " + target.string()));
  EXPECT_THAT(StoreWorld::Tree(target), ElementsAre("A.one"));
  AnswerFile("Junk.onepkg", "junk");
  desk.recording.AnswerOpenPanel({target});
  Do("ExtractOnepkgFile");
  EXPECT_THAT(LastMessage(), StartsWith(Text("errRestoreFailure")));
}

// Section files go into a folder of their own; those of the other format are refused before anything is
// written.
TEST_F(PackageActions, RestoreSections) {
  store.Version("Work", "A", "x");
  AnswerFile("S.one", kNativeSection);
  EXPECT_THAT(Do("RestoreOneSectionFile"),
              EndsWith("message " + Text("msgRestoreSuccess") + "; run command-o"));
  const fs::path sections = store.cache / "Quill Restore Sections";
  EXPECT_EQ(*ReadFile(sections / "S.one"), kNativeSection);
  AnswerFile("Other.one", "short");
  Do("RestoreOneSectionFile");
  EXPECT_EQ(LastMessage(), "Mac OneNote doesn't support this .one file!");
  EXPECT_FALSE(fs::exists(sections / "Other.one"));
  Do("RestoreA4OneNoteTemplate");
  EXPECT_EQ(*ReadFile(sections / "a4.one"), files::A4Section());
  desk.recording.FailScripts({platform::ScriptProblem::TargetMissing});
  Do("RestoreA4OneNoteTemplate");
  EXPECT_EQ(LastMessage(), Text("errScriptTargetMissing"));
}

}  // namespace
}  // namespace quill::shell
