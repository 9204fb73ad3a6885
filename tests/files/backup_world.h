#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <fstream>
#include <set>
#include <string>
#include <utility>

#include "base/atomic_file.h"
#include "files/backup/backup_folder.h"
#include "platform/background_processes.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/temporary_folder.h"

namespace quill::files {

namespace fs = std::filesystem;
using Day = std::chrono::year_month_day;

inline Day DayOf(std::string_view name) {
  return *ParseStoredDate(name);
}

/// OneNote's data, the program's own folder, and something beside them that nobody may touch.
struct BackupWorld {
  BackupWorld() {
    fs::create_directories(places.backupFolder);
    folder.Write("outside/kept.txt", "kept");
  }
  void WriteData(const std::string& name, const std::string& bytes) {
    std::ofstream(Made(places.dataFolder / name), std::ios::binary) << bytes;
  }
  /// A folder in the backup folder with a copy in it.
  void AddBackup(const std::string& name, const std::string& bytes = "old") {
    std::ofstream(Made(places.backupFolder / name / "OneNote" / "a.one")) << bytes;
  }
  static fs::path Made(const fs::path& file) {
    fs::create_directories(file.parent_path());
    return file;
  }

  /// The names in the backup folder.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(places.backupFolder))
      names.insert(entry.path().filename());
    return names;
  }
  /// The names of the backups, an incomplete one with "?".
  std::set<std::string> Listed() const {
    std::set<std::string> names;
    const auto backups = ListBackups(places);
    EXPECT_TRUE(backups.ok());
    for (const Backup& one : *backups) names.insert(one.name + (one.isWhole ? "" : "?"));
    return names;
  }
  std::string Outside() const { return ReadFile(folder.path() / "outside/kept.txt").ValueOr("gone"); }

  test::TemporaryFolder folder;
  BackupPlaces places{folder.path() / "Support", folder.path() / "Support/OneAppBackup",
                      folder.path() / "Library/OneNote"};
};

/// Runs the programs when it is told to, in their order, and remembers their commands.
class WaitingProcesses final : public platform::BackgroundProcesses {
 public:
  void Start(platform::ProcessRequest request, Done done) override {
    commands.push_back(request.command[0] + " " + request.command[1] + " " +
                       fs::path(request.command.back()).filename().string());
    m_waiting.emplace_back(std::move(request), std::move(done));
  }
  /// False when nothing waits.
  bool RunOne() {
    if (m_waiting.empty()) return false;
    const auto one = std::move(m_waiting.front());
    m_waiting.pop_front();
    one.second(runner.Run(one.first));
    return true;
  }
  void RunAll() {
    while (RunOne()) {
    }
  }

  std::vector<std::string> commands;
  platform::PosixProcessRunner runner;

 private:
  std::deque<std::pair<platform::ProcessRequest, Done>> m_waiting;
};

}  // namespace quill::files
