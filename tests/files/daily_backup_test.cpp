#include "files/backup/daily_backup.h"

#include <gmock/gmock.h>

#include "files/backup/backup_restore.h"
#include "files/backup_world.h"

namespace quill::files {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct DailyBackupTest : testing::Test, BackupWorld {
  /// Begins a day; whether it counts as done then.
  bool Begin(std::string_view day) {
    bool isBegun = false;
    backup.Begin(DayOf(day), [&isBegun] { isBegun = true; });
    while (!isBegun && processes.RunOne()) {
    }
    return isBegun;
  }
  void Finish() { processes.RunAll(); }

  WaitingProcesses processes;
  std::vector<BackupOutcome> ends;
  DailyBackup backup{{places, processes, [this](const BackupOutcome& end) { ends.push_back(end); }}};
};

// Only yesterday's survives: older days, future days and what is no day go; files and marks of others stay.
TEST_F(DailyBackupTest, KeepsYesterdayAndCopiesToday) {
  WriteData("15.0/Cache/Work/Plan.one", "plan");
  for (const char* name : {"20240101", "20240102", "20240104", "notes", "20241399"}) AddBackup(name);
  folder.Write("Support/OneAppBackup/readme", "a file");
  ASSERT_TRUE(MarkIncomplete(places.backupFolder, "20231224"));
  ASSERT_TRUE(Begin("20240103"));
  EXPECT_THAT(Listed(), testing::Contains("20240103?")) << "until cp has ended";
  Finish();
  EXPECT_THAT(Names(), UnorderedElementsAre("20240102", "20240103", "readme"));
  EXPECT_THAT(Listed(), UnorderedElementsAre("20240102", "20240103"));
  EXPECT_EQ(ReadFile(places.backupFolder / "20240103/OneNote/15.0/Cache/Work/Plan.one").ValueOr(""), "plan");
  ASSERT_EQ(ends.size(), 1u);
  EXPECT_TRUE(ends[0].isWhole && ends[0].problem.empty()) << ends[0].problem;
  EXPECT_EQ(processes.commands.back(), "/bin/cp -R 20240103");
}

// When the day of the last backup was lost, today's folder goes first: rm and cp must not work in it
// together.
TEST_F(DailyBackupTest, ReplacesTodaysOnlyWhenItIsGone) {
  WriteData("b.one", "new");
  AddBackup("20240103");
  backup.Begin(DayOf("20240103"), [] {});
  EXPECT_THAT(processes.commands, ElementsAre("/bin/rm -rf 20240103"));
  EXPECT_FALSE(backup.IsDue(std::nullopt, DayOf("20240103"))) << "a tick meanwhile must not begin again";
  EXPECT_THAT(Listed(), ElementsAre("20240103?")) << "half removed it would pass for a whole one";
  Finish();
  EXPECT_THAT(Listed(), ElementsAre("20240103"));
  EXPECT_FALSE(fs::exists(places.backupFolder / "20240103/OneNote/a.one"));
}

// Without OneNote's data an empty copy would push out the last good one; nothing happens, and the day stays
// open.
TEST_F(DailyBackupTest, WaitsForTheData) {
  AddBackup("20240101");
  EXPECT_FALSE(backup.IsDue(std::nullopt, DayOf("20240103")));
  EXPECT_FALSE(Begin("20240103"));
  EXPECT_THAT(Listed(), ElementsAre("20240101"));
  WriteData("a.one", "");
  EXPECT_TRUE(backup.IsDue(DayOf("20240102"), DayOf("20240103")));
  EXPECT_FALSE(backup.IsDue(DayOf("20240103"), DayOf("20240103")));
}

// A link in the backup folder is removed, what it leads to is not.
TEST_F(DailyBackupTest, RemovesLinksAndNotWhatTheyLeadTo) {
  WriteData("a.one", "");
  for (const char* name : {"20230101", "elsewhere", "20240103"})
    fs::create_directory_symlink(folder.path() / "outside", places.backupFolder / name);
  EXPECT_THAT(Listed(), IsEmpty());
  ASSERT_TRUE(Begin("20240103"));
  Finish();
  EXPECT_THAT(Names(), ElementsAre("20240103"));
  EXPECT_FALSE(fs::is_symlink(places.backupFolder / "20240103"));
  EXPECT_EQ(Outside(), "kept");
}

// Nothing is ever deleted in a folder that is not the program's own.
TEST_F(DailyBackupTest, RefusesEveryOtherFolder) {
  WriteData("a.one", "");
  folder.Write("Documents/OneAppBackup/20200101/a", "");
  fs::create_directories(folder.path() / "Linked");
  fs::create_directory_symlink(folder.path() / "Documents/OneAppBackup",
                               folder.path() / "Linked/OneAppBackup");
  const fs::path own = places.supportFolder;
  const fs::path linked = folder.path() / "Linked";
  const std::pair<fs::path, fs::path> wrong[] = {{own, "OneAppBackup"},
                                                 {own, "/"},
                                                 {own, own},
                                                 {own, own / "Tmp/OneAppBackup"},
                                                 {own, own / "../Documents/OneAppBackup"},
                                                 {own, folder.path() / "Documents/OneAppBackup"},
                                                 {linked, linked / "OneAppBackup"},
                                                 {"", own / "OneAppBackup"}};
  for (const auto& [support, root] : wrong) {
    const BackupPlaces there{support, root, places.dataFolder};
    std::string problem;
    DailyBackup other({there, processes, [&](const BackupOutcome& end) { problem = end.problem; }});
    other.Begin(DayOf("20240103"), [] { ADD_FAILURE(); });
    EXPECT_NE(problem, "") << root;
    EXPECT_FALSE(ClearBackups(there, processes.runner, nullptr).ok()) << root;
  }
  EXPECT_THAT(processes.commands, IsEmpty());
  EXPECT_TRUE(fs::exists(folder.path() / "Documents/OneAppBackup/20200101/a"));
  fs::create_directory_symlink(own, folder.path() / "Home");
  const BackupPlaces linkedHome{folder.path() / "Home", folder.path() / "Home/OneAppBackup",
                                places.dataFolder};
  EXPECT_TRUE(OwnBackupFolder(linkedHome).ok()) << "a home that is reached by a link is fine";
}

struct RestoreTest : testing::Test, BackupWorld {
  platform::PosixProcessRunner runner;
};

// The copy comes back over the live data, which keeps what the backup does not have; the backup stays as it
// is.
TEST_F(RestoreTest, MergesIntoTheLiveData) {
  AddBackup("20240101", "from the backup");
  WriteData("a.one", "live");
  WriteData("b.one", "only live");
  ASSERT_TRUE(RestoreBackup(places, runner, "20240101", nullptr).ok());
  EXPECT_EQ(ReadFile(places.dataFolder / "a.one").ValueOr(""), "from the backup");
  EXPECT_EQ(ReadFile(places.dataFolder / "b.one").ValueOr(""), "only live");
  EXPECT_THAT(Listed(), ElementsAre("20240101"));
  fs::remove_all(folder.path() / "Library");
  EXPECT_TRUE(RestoreBackup(places, runner, "20240101", nullptr).ok()) << "also when all data is gone";
  EXPECT_EQ(ReadFile(places.dataFolder / "a.one").ValueOr(""), "from the backup");
}

// Half a backup over good data would be worse than none; names from outside stay inside.
TEST_F(RestoreTest, RefusesWhatIsNoWholeBackup) {
  AddBackup("20240101");
  ASSERT_TRUE(MarkIncomplete(places.backupFolder, "20240101"));
  AddBackup("notes");
  fs::create_directories(places.backupFolder / "20240102");
  WriteData("a.one", "live");
  for (const char* name :
       {"20240101", "20240102", "notes", "", ".", "..", "../OneAppBackup/notes", "20240199"})
    EXPECT_FALSE(RestoreBackup(places, runner, name, nullptr).ok()) << name;
  EXPECT_EQ(ReadFile(places.dataFolder / "a.one").ValueOr(""), "live");
  UnmarkIncomplete(places.backupFolder, "20240101");
  struct Stopped final : platform::ProcessRunner {
    platform::ProcessResult Run(const platform::ProcessRequest& request) override {
      platform::ProcessResult result;
      result.end = request.isCancelled() ? platform::ProcessEnd::Cancelled : platform::ProcessEnd::Exited;
      return result;
    }
  } stopped;
  const Status<> restored = RestoreBackup(places, stopped, "20240101", [] { return true; });
  EXPECT_TRUE(!restored.ok() && restored.error().empty()) << "who has stopped it needs no reason";
}

// From the window, folders that are no days are left alone.
TEST_F(RestoreTest, ClearRemovesDaysOnly) {
  for (const char* name : {"20240101", "20240102", "notes"}) AddBackup(name);
  ASSERT_TRUE(MarkIncomplete(places.backupFolder, "20240102"));
  fs::create_directory_symlink(folder.path() / "outside", places.backupFolder / "20230101");
  ASSERT_TRUE(ClearBackups(places, runner, nullptr).ok());
  EXPECT_THAT(Names(), ElementsAre("notes"));
  EXPECT_EQ(Outside(), "kept");
}

}  // namespace
}  // namespace quill::files
