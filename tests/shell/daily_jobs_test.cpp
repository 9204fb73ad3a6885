#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/atomic_file.h"
#include "base/version.h"
#include "files/config.h"
#include "platform/curl/curl_http.h"
#include "platform/posix/posix_process_runner.h"
#include "platform/web_server.h"
#include "shell/application.h"
#include "shell/command_world.h"
#include "shell/temporary_folder.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A user without notebooks on a day of a leap year.
struct UserWorld : test::CommandWorld {
  UserWorld() {
    globals.folders = LayOutFolders(FindFolderRoots(folder.path()), false);
    fs::create_directories(globals.folders.SupportFolder);
    recording.SetOneNoteRunning(false);
    SetDay(0);
    globals.settings = DefaultSettings(clock.Now());
    globals.oneDayBack = clock.Now() - std::chrono::days(1);
  }
  void SetDay(int day) {
    using namespace std::chrono;
    clock.Set(sys_days(year(2024) / 3 / 1) + hours(12) + days(day));
  }
  void MakeData() const { fs::create_directories(BackupPlacesOf(globals.folders).dataFolder); }
  /// Whether there is a whole backup of this day.
  bool HasBackup(const std::string& name) const {
    const auto backups = files::ListBackups(BackupPlacesOf(globals.folders));
    return backups.ok() && std::ranges::any_of(*backups, [&](const files::Backup& one) {
             return one.name == name && one.isWhole;
           });
  }
  const test::TemporaryFolder folder;
};

/// The jobs of the housekeeping as `Application` puts them together, ticked by the test, with a maker's
/// server.
struct DailyJobs : testing::Test, UserWorld {
  DailyJobs() {
    server.pages.Get("/version", [this](const auto&, auto& response) {
      ++asked;
      response.status = status;
      response.set_content("99.0.0.0\n", "text/plain");
    });
    server.Start();
    globals.endpoints.update = server.address() + "/version";
    globals.endpoints.product = "https://example.org/product";
    Start();
  }
  /// As a new start of the program on the same folders.
  void Start() {
    const auto post = [this](std::function<void()> job) {
      const std::lock_guard lock(mutex);
      posted.push_back(std::move(job));
    };
    requests.reset();
    processes.reset();
    posted.clear();
    requests = std::make_unique<BackgroundRequests>(std::make_shared<platform::CurlHttp>(), post);
    processes = std::make_unique<BackgroundProcesses>(std::make_shared<platform::PosixProcessRunner>(), post);
    LoadSettings(globals);
    housekeeping = std::make_unique<Housekeeping>(globals, recording, clock);
    backup = std::make_unique<BackupJob>(globals, *processes, recording, log);
    update = std::make_unique<UpdateJobs>(UpdateJobs::Parts{globals, *requests, recording, recording, log});
    backup->AddTo(*housekeeping);
    update->AddTo(*housekeeping);
  }
  /// Ticks after these seconds without a key, and takes what comes back until the condition holds.
  bool Tick(
      std::int64_t idle, const std::function<bool()>& until = [] { return true; }) {
    recording.SetIdleSeconds(idle);
    housekeeping->Tick();
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!until() && std::chrono::steady_clock::now() < deadline) {
      std::vector<std::function<void()>> jobs;
      {
        const std::lock_guard lock(mutex);
        jobs.swap(posted);
      }
      for (const auto& job : jobs) job();
      std::this_thread::yield();
    }
    return until();
  }
  std::string Saved(std::string_view key) const {
    return files::MConfig(globals.folders.SettingsFile).ReadString(key, "");
  }

  test::WebServer server;
  std::atomic<int> asked = 0;
  std::atomic<int> status = 200;
  std::string logged;
  Log log{{false, false, false}, [this](std::string_view line) { logged.append(line).append("\n"); }};
  std::mutex mutex;
  std::vector<std::function<void()>> posted;
  std::unique_ptr<BackgroundRequests> requests;
  std::unique_ptr<BackgroundProcesses> processes;
  std::unique_ptr<Housekeeping> housekeeping;
  std::unique_ptr<BackupJob> backup;
  std::unique_ptr<UpdateJobs> update;
};

// Once a day, at the first moment with OneNote closed and the user away; the day survives a restart.
TEST_F(DailyJobs, BackUpOnceADay) {
  MakeData();
  recording.SetOneNoteRunning(true);
  Tick(10);
  recording.SetOneNoteRunning(false);
  for (const std::int64_t idle : {-1, 0, 9}) Tick(idle);
  EXPECT_FALSE(fs::exists(globals.folders.BackupFolder));
  EXPECT_TRUE(Tick(10, [&] { return HasBackup("20240301"); }));
  EXPECT_EQ(Saved("OneAppBackup_Last"), "20240301");
  Start();
  fs::remove_all(globals.folders.BackupFolder);
  Tick(10);
  EXPECT_FALSE(fs::exists(globals.folders.BackupFolder)) << "this day is done";
  SetDay(1);
  EXPECT_TRUE(Tick(10, [&] { return HasBackup("20240302"); }));
  EXPECT_EQ(logged, "");
}

// Downloaded in one break, announced in another, and never again, not after a restart either.
TEST_F(DailyJobs, AnnounceANewerVersionOnce) {
  EXPECT_TRUE(Tick(30, [&] { return Saved("OneAppUpdate_Last") == "20240301"; }));
  EXPECT_TRUE(recording.windows().empty()) << "the file was not there yet in that tick";
  Tick(29);
  EXPECT_TRUE(recording.windows().empty());
  Tick(30);
  ASSERT_EQ(recording.windows().size(), 1u);
  EXPECT_EQ(std::any_cast<NoticeRequest>(recording.windows()[0]).text,
            "Found Quill Menu for Mac OneNote new version 99.0.0.0");
  EXPECT_THAT(recording.transcript(), HasSubstr("https://example.org/product"));
  EXPECT_EQ(Saved("CheckedUpdateVersion_Last"), "99.0.0.0");
  SetDay(1);
  Start();
  EXPECT_TRUE(Tick(30, [&] { return asked == 2; }));
  EXPECT_EQ(recording.windows().size(), 1u);
}

// A version that is not newer says nothing and is compared again on the next day.
TEST_F(DailyJobs, CompareAgainOnTheNextDay) {
  globals.endpoints.update.clear();
  for (const std::string version : {kVersion, "98.0.0.0"}) {
    ASSERT_TRUE(WriteFileAtomically(globals.folders.UpdateInfoFile, version).ok());
    Tick(30);
    EXPECT_TRUE(recording.windows().empty()) << version;
  }
  SetDay(1);
  Tick(30);
  EXPECT_EQ(recording.windows().size(), 1u);
  EXPECT_EQ(asked, 0) << "no address, no download";
}

// A server that is down is asked again tomorrow, not every second.
TEST_F(DailyJobs, AskAFailingServerOnceADay) {
  status = 503;
  const auto hasFailed = [&] { return logged.find("下载文件出错：HTTP 503") != std::string::npos; };
  EXPECT_TRUE(Tick(20, hasFailed));
  EXPECT_EQ(Saved("OneAppUpdate_Last"), "");
  Tick(20);
  SetDay(1);
  logged.clear();
  EXPECT_TRUE(Tick(20, hasFailed));
  EXPECT_EQ(asked, 2);
}

// Nothing begins while a menu or a modal window is open, and the screen is not asked before there is work.
TEST_F(DailyJobs, WaitForTheScreen) {
  MakeData();
  std::vector<std::function<void(bool)>> questions;
  housekeeping->WaitForScreen([&](auto answer) { questions.push_back(std::move(answer)); });
  Tick(9);
  EXPECT_TRUE(questions.empty());
  for (int i = 0; i < 3; ++i) Tick(10);
  ASSERT_EQ(questions.size(), 1u) << "one question at a time";
  questions[0](false);
  Tick(10);
  recording.SetIdleSeconds(0);
  questions.at(1)(true);
  EXPECT_FALSE(fs::exists(globals.folders.BackupFolder)) << "the user is back";
  Tick(10);
  questions.at(2)(true);
  EXPECT_TRUE(Tick(0, [&] { return HasBackup("20240301"); }));
}

// The whole way in a running program: what counts is the user's own OneNote, whatever its commands work in.
TEST(Application, BacksUpWhileTheUserIsAway) {
  UserWorld world;
  world.MakeData();
  world.recording.SetOneNoteRunning(true);
  platform::recording::Recording user;
  user.SetOneNoteRunning(false);
  user.SetIdleSeconds(10);
  Engines engines;
  engines.processes = std::make_shared<platform::PosixProcessRunner>();
  Application application(
      {world.globals, world.strings, world.clock, world.recording,
       [&] {
         return platform::Backend{"recording", &world.recording, &world.recording, nullptr};
       },
       world.recording, user, world.log, nullptr, engines});
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!world.HasBackup("20240301") && std::chrono::steady_clock::now() < deadline)
    std::this_thread::yield();
  EXPECT_TRUE(world.HasBackup("20240301"));
}

}  // namespace
}  // namespace quill::shell
