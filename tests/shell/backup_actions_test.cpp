#include "shell/backup_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/backup_job.h"
#include "shell/command_world.h"
#include "shell/open_notebook.h"
#include "shell/shortcut_installer.h"
#include "shell/temporary_folder.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A user with two backups.
struct BackupActions : testing::Test {
  BackupActions() {
    world.globals.folders = LayOutFolders(FindFolderRoots(folder.path()), false);
    world.services.engines.processes = std::make_shared<platform::PosixProcessRunner>();
    world.recording.SetOneNoteRunning(false);
    for (const char* name : {"20240101", "20240102"}) {
      const fs::path file = places().backupFolder / name / "OneNote/a.one";
      fs::create_directories(file.parent_path());
      EXPECT_TRUE(WriteFileAtomically(file, name).ok());
    }
  }
  files::BackupPlaces places() const { return BackupPlacesOf(world.globals.folders); }
  std::string Live() const { return ReadFile(places().dataFolder / "a.one").ValueOr("none"); }
  std::vector<std::string> Texts(std::initializer_list<std::string_view> keys) const {
    std::vector<std::string> texts;
    for (const std::string_view key : keys) texts.emplace_back(world.strings.Text(key));
    return texts;
  }
  BackupWork Work() {
    return {[this] { ++begun; }, nullptr};
  }

  const test::TemporaryFolder folder;
  test::CommandWorld world;
  CommandContext context{world.services, world.globals};
  int begun = 0;
};

// OneNote must be closed, the user must agree, and the question names the day.
TEST_F(BackupActions, RestoreAsksFirst) {
  world.recording.SetOneNoteRunning(true);
  RestoreBackup(context, "20240101", "1 January", Work());
  EXPECT_EQ(world.recording.messages(), Texts({"errBackupCloseOneNote"}));
  EXPECT_THAT(world.recording.transcript(), testing::Not(HasSubstr("ask "))) << "no question then";
  world.recording.SetOneNoteRunning(false);
  RestoreBackup(context, "20240101", "1 January", Work());
  EXPECT_THAT(world.recording.transcript(), HasSubstr("Restore the backup of 1 January?"));
  EXPECT_EQ(Live(), "none");
  EXPECT_EQ(begun, 0);
  world.recording.AnswerYesNo(true);
  RestoreBackup(context, "20240101", "1 January", Work());
  EXPECT_EQ(Live(), "20240101");
  EXPECT_EQ(begun, 1);
  EXPECT_EQ(world.recording.messages(), Texts({"errBackupCloseOneNote", "WinBackupSuccess"}));
}

// A restore that did not work is not told as one that did.
TEST_F(BackupActions, RestoreTellsWhatWentWrong) {
  fs::create_directories(places().dataFolder / "a.one");
  world.recording.AnswerYesNo(true);
  RestoreBackup(context, "20240101", "1 January", Work());
  EXPECT_THAT(world.recording.messages(), ElementsAre(HasSubstr("a.one")));
}

// The link goes to OneNote as the window gave it; a window that was closed opens nothing.
TEST_F(BackupActions, OpenNotebookRunsTheScript) {
  const CommandRow& row = *FindCommand("MenuItemOpenNotebookByLink");
  row.handler(context, row);
  EXPECT_THAT(world.recording.transcript(), testing::Not(HasSubstr("run open")));
  world.recording.AnswerDialog<OpenNotebookRequest>("onenote:https://h/Work");
  row.handler(context, row);
  EXPECT_THAT(world.recording.transcript(), HasSubstr("run open onenote:https://h/Work"));
}

/// Takes every command for done.
struct QuietRunner final : platform::ProcessRunner {
  platform::ProcessResult Run(const platform::ProcessRequest& request) override {
    commands.push_back(request.command);
    platform::ProcessResult result;
    result.end = platform::ProcessEnd::Exited;
    return result;
  }
  std::vector<std::vector<std::string>> commands;
};

// A running OneNote reads its keys at its next start: the user is told, the keys are written all the same.
TEST_F(BackupActions, TheShortcutIsWrittenWhateverRuns) {
  const auto runner = std::make_shared<QuietRunner>();
  fs::create_directories(world.globals.folders.SupportFolder);
  world.services.engines.processes = runner;
  world.services.engines.preferredLanguage = "zh_CN.UTF-8";
  world.recording.SetOneNoteRunning(true);
  WriteCopyLinkShortcut(context);
  EXPECT_THAT(
      world.recording.messages(),
      ElementsAre(
          "Found the OneNote app is running. Please restart OneNote after the installation is complete."));
  ASSERT_EQ(runner->commands.size(), 2u);
  EXPECT_EQ(runner->commands[1].back(), "{ \"复制指向页面的链接\" = \"@^p\"; }");
}

}  // namespace
}  // namespace quill::shell
