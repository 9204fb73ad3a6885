#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/backend.h"
#include "platform/clock.h"
#include "platform/user_interface.h"
#include "platform/workspace.h"
#include "shell/background_processes.h"
#include "shell/background_requests.h"
#include "shell/backup_job.h"
#include "shell/command_table.h"
#include "shell/command_thread.h"
#include "shell/engines.h"
#include "shell/globals.h"
#include "shell/housekeeping.h"
#include "shell/menu_state.h"
#include "shell/page_watch.h"
#include "shell/settings_watch.h"
#include "shell/string_table.h"
#include "shell/update_jobs.h"

namespace quill::shell {

/// What became of a request to run an action.
struct Outcome {
  bool ran = false;                   ///< false: refused, `messages` says why
  std::vector<std::string> messages;  ///< alerts, when they were asked to go to the caller
  std::vector<std::string> steps;     ///< the steps, when they were asked for
};

/// How an action is run.
struct RunRequest {
  const CommandRow* row;
  std::optional<std::int64_t> argument;  ///< in place of the row's own
  bool messagesToCaller = false;         ///< alerts are collected instead of shown
  bool explain = false;
};

/// The running program without its screen: one command thread, the state it owns, and what commands are
/// given to work with. Made and destroyed on the GUI thread.
class Application {
 public:
  struct Parts {
    Globals globals;
    const StringTable& strings;
    const platform::Clock& clock;
    platform::UserInterface& ui;
    platform::ChooseBackend chooseBackend;
    platform::Workspace& workspace;
    /// The user's own desktop, whatever the commands work in: tells the housekeeping the idle time, and
    /// whether OneNote is open.
    platform::Desktop& idleSource;
    Log& log;
    /// Told, on the command thread, that the settings file was written and has been read again.
    std::function<void(const Settings& settings)> onSettingsRead = nullptr;
    Engines engines = {};
    /// The practice notebook's online service, asked for when a command in the notebook needs it. Command
    /// thread.
    std::function<Result<Endpoints>()> practiceService = nullptr;
    /// Finds out whether a menu or a modal window is open, and tells it once, then or later, on any thread.
    /// Called on the command thread. Without it the screen counts as free.
    std::function<void(std::function<void(bool isFree)>)> askForScreen = nullptr;
  };

  explicit Application(Parts parts);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// Runs an action on the command thread and calls `done` there when it is over. While another command
  /// runs it is refused: `done` is called at once, on the calling thread, with the reason. An action that is
  /// nothing but a window is shown at once, whatever runs. Any thread.
  void Run(const RunRequest& request, const std::function<void(Outcome)>& done);

  /// As `Run`, waiting for the end. Not to be called on the GUI or the command thread.
  Outcome RunAndWait(const RunRequest& request);

  /// Runs a piece of work as a command of this name, refused like any other while one runs. `done` as in
  /// `Run`.
  void RunJob(std::string name, std::function<void(CommandContext&)> job,
              const std::function<void(Outcome)>& done);

  /// Runs a short job with the shared state on the command thread, after the command that runs now; jobs keep
  /// their order. Dropped when the program ends first. Any thread.
  void Post(std::function<void(Globals&)> job);

  /// Looks at what the menu shows and hands it to `done` on the command thread, between commands. Any thread.
  void AskMenuState(std::function<void(const MenuState&)> done);

  /// Opens a link that the system handed over, as the raw text that came; others than "qvar://" (lower case)
  /// are ignored. Waits for nothing. Any thread.
  void OpenLink(std::string url, const std::function<void(Outcome)>& done);

  /// Gives OneNote's command "Copy Link to Page" its keys, as a command. Waits for nothing. Any thread.
  void InstallShortcut(const std::function<void(Outcome)>& done);

  /// The setting by which OneNote's window is found. Command thread.
  const std::string& TargetWindowPattern() const { return m_parts.globals.settings.TargetWindowPattern; }

  /// One request line of the local channel and its answer line (JSON both). Called on the channel's
  /// thread. Requests: {"trigger": ACTION or NUMBER, "argument": N, "explain": true}, {"url": LINK},
  /// {"install": true} (see `InstallShortcut`) and {"ping": true}.
  std::string Answer(std::string_view requestLine);

 private:
  using Job = std::function<void(CommandContext& context)>;
  struct JobOptions {
    std::int64_t argument = 0;
    bool messagesToCaller = false;
    bool explain = false;
  };

  void Start(std::string name, JobOptions options, Job job, const std::function<void(Outcome)>& done);
  Outcome Execute(const JobOptions& options, const Job& job);
  std::string AnswerUrl(std::string url);
  std::string AnswerInstall();
  /// Tells a refusal to a user whom nobody waits for.
  void TellRefusal(const Outcome& outcome);
  void ReadChangedSettings();
  void Tick();
  /// Begins with what is done between commands. Command thread.
  void BeginWatching(CommandThread& thread);

  Parts m_parts;
  Housekeeping m_housekeeping;
  SettingsWatch m_settingsWatch;
  std::unique_ptr<BackgroundRequests> m_requests;    ///< null without a way to the services
  std::unique_ptr<BackgroundProcesses> m_processes;  ///< null without a way to other programs
  std::unique_ptr<PageWatch> m_pageWatch;
  std::unique_ptr<BackupJob> m_backupJob;
  std::unique_ptr<UpdateJobs> m_updateJobs;
  std::unique_ptr<CommandThread> m_thread;
};

}  // namespace quill::shell
