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
#include "shell/command_table.h"
#include "shell/command_thread.h"
#include "shell/globals.h"
#include "shell/housekeeping.h"
#include "shell/settings_watch.h"
#include "shell/string_table.h"

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
    platform::Desktop& idleSource;  ///< tells the idle time to the housekeeping
    Log& log;
  };

  explicit Application(Parts parts);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// Runs an action on the command thread and calls `done` there when it is over. While another command
  /// runs it is refused: `done` is called at once, on the calling thread, with the reason. Any thread.
  void Run(const RunRequest& request, const std::function<void(Outcome)>& done);

  /// As `Run`, waiting for the end. Not to be called on the GUI or the command thread.
  Outcome RunAndWait(const RunRequest& request);

  /// The setting by which OneNote's window is found. Command thread.
  const std::string& TargetWindowPattern() const { return m_parts.globals.settings.TargetWindowPattern; }

  /// One request line of the local channel and its answer line (JSON both). Called on the channel's
  /// thread. Requests: {"trigger": ACTION or NUMBER, "argument": N, "explain": true} and {"ping": true}.
  std::string Answer(std::string_view requestLine);

 private:
  Outcome Execute(const RunRequest& request);

  Parts m_parts;
  Housekeeping m_housekeeping;
  SettingsWatch m_settingsWatch;
  std::unique_ptr<CommandThread> m_thread;
};

}  // namespace quill::shell
