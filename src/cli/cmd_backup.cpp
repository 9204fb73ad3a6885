#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/awaited_processes.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "files/backup/backup_restore.h"
#include "files/backup/daily_backup.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/backup_job.h"

namespace quill::cli {
namespace {

using files::Backup;

/// By the name of its process: there is no screen to look for its window.
bool OneNoteRuns(platform::ProcessRunner& runner) {
  platform::ProcessRequest request;
  request.command = {"pgrep", "-x", "(Microsoft )?OneNote"};
  return runner.Run(request).ok();
}

std::vector<Backup> BackupsOf(const files::BackupPlaces& places) {
  auto backups = files::ListBackups(places);
  if (!backups.ok()) throw Stop(kWorkFailed, backups.error());
  return std::move(*backups);
}

/// Ends the command when its work has failed; a failure without a reason is Control+C.
void StopUnlessDone(const Status<>& status) {
  if (status.ok()) return;
  throw Stop(kWorkFailed, status.error().empty() ? "stopped" : status.error());
}

void RunBackup(const Call& call) {
  WatchInterrupts();
  shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  const files::BackupPlaces places = shell::BackupPlacesOf(globals.folders);
  platform::PosixProcessRunner runner;
  if (OneNoteRuns(runner))
    PrintError("OneNote is running; what it has not written yet is not in this backup");
  AwaitedProcesses processes(runner);
  std::optional<files::BackupOutcome> outcome;
  files::DailyBackup backup({places, processes, [&](const files::BackupOutcome& end) { outcome = end; }});
  const auto today = LocalDay(platform::SystemClock().Now());
  Status<> saved = Done();
  backup.Begin(today, [&] { saved = shell::RememberBackup(globals, today); });
  processes.Finish();
  if (!outcome)
    throw Stop(kWorkFailed, places.dataFolder.string() + ": there is no such folder, so nothing to back up");
  if (!outcome->problem.empty()) PrintError(outcome->problem);
  StopUnlessDone(saved);
  if (!outcome->isWhole) throw Stop(kWorkFailed, "there is no complete backup of today");
  WriteOutput("", fmt::format("{}\n", (places.backupFolder / StoredDateText(today)).string()));
}

void ListBackups(const Call& call, bool json) {
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  const files::BackupPlaces places = shell::BackupPlacesOf(globals.folders);
  nlohmann::json list = nlohmann::json::array();
  std::string text;
  for (const Backup& backup : BackupsOf(places)) {
    const files::BackupContents contents = files::MeasureBackup(places, backup.name, nullptr);
    list.push_back({{"name", backup.name},
                    {"isWhole", backup.isWhole},
                    {"bytes", contents.bytes},
                    {"notebooks", contents.notebooks},
                    {"sections", contents.sections}});
    text += fmt::format("{}  {:<10}  {:>14} bytes  {:>4} notebooks  {:>5} sections\n", backup.name,
                        backup.isWhole ? "complete" : "incomplete", contents.bytes, contents.notebooks,
                        contents.sections);
  }
  WriteOutput("", json ? nlohmann::json{{"backups", list}}.dump(2) + "\n" : text);
}

/// A question on the terminal; whoever cannot be asked has to say --yes.
void AskUnless(bool isSure, const std::string& question) {
  if (isSure) return;
  std::cerr << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  if (answer != "y" && answer != "Y" && answer != "yes")
    throw Stop(kWorkFailed, "nothing was done; see --yes");
}

void RestoreBackup(const Call& call, const std::string& name, bool isSure) {
  WatchInterrupts();
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  const files::BackupPlaces places = shell::BackupPlacesOf(globals.folders);
  const std::vector<Backup> backups = BackupsOf(places);
  if (std::ranges::find(backups, name, &Backup::name) == backups.end())
    throw Stop(kWrongCall, fmt::format("there is no backup \"{}\"; see `quill backup list`", name));
  platform::PosixProcessRunner runner;
  if (OneNoteRuns(runner)) throw Stop(kWorkFailed, std::string(call.strings.Text("errBackupCloseOneNote")));
  AskUnless(isSure, call.strings.Format("askBackupRecovery", {name}));
  StopUnlessDone(files::RestoreBackup(places, runner, name, WasInterrupted));
  WriteOutput("", std::string(call.strings.Text("WinBackupSuccess")) + "\n");
}

void ClearBackups(const Call& call, bool isSure) {
  WatchInterrupts();
  const shell::Globals globals = shell::OpenGlobals(call.root, platform::SystemClock());
  AskUnless(isSure, std::string(call.strings.Text("askClearBackup")));
  platform::PosixProcessRunner runner;
  StopUnlessDone(files::ClearBackups(shell::BackupPlacesOf(globals.folders), runner, WasInterrupted));
  WriteOutput("", std::string(call.strings.Text("ClearBackupSuccess")) + "\n");
}

}  // namespace

void AddBackup(CLI::App& app, Call& call) {
  struct Options {
    std::string name;
    bool isSure = false;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* backup =
      app.add_subcommand("backup", "The copies of OneNote's local data that are made once a day");
  backup->require_subcommand(1);
  CLI::App* run = backup->add_subcommand(
      "run",
      "Make today's copy now, in place of one that is there; backups older than yesterday's are deleted");
  run->callback([&call] { RunBackup(call); });
  CLI::App* list = backup->add_subcommand("list", "The backups, their size, and whether they are complete");
  list->add_flag("--json", options->json, "One JSON object");
  list->callback([&call, options] { ListBackups(call, options->json); });
  CLI::App* restore = backup->add_subcommand(
      "restore", "Copy a backup over OneNote's local data: files of the same name are replaced, others stay");
  restore->add_option("NAME", options->name, "The backup's name, as `quill backup list` gives it")
      ->required();
  CLI::App* clear = backup->add_subcommand("clear", "Delete all backups");
  for (CLI::App* one : {restore, clear}) one->add_flag("--yes", options->isSure, "Do not ask");
  restore->callback([&call, options] { RestoreBackup(call, options->name, options->isSure); });
  clear->callback([&call, options] { ClearBackups(call, options->isSure); });
}

}  // namespace quill::cli
