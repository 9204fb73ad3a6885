#pragma once
#include <functional>
#include <memory>
#include <string>

#include "platform/backend.h"

namespace quill::ui {

class PracticeHost;

/// The desktops that this program can reach, opened when a command first asks for one, and the rule by which
/// one is picked. Made on the GUI thread; used and destroyed when no other thread uses it.
class Backends {
 public:
  /// `practice` outlives this object; `targetPattern` is asked on the command thread.
  Backends(PracticeHost& practice, std::function<std::string()> targetPattern);
  ~Backends();
  Backends(const Backends&) = delete;
  Backends& operator=(const Backends&) = delete;

  /// OneNote's window when it is the active one; else the practice notebook while it is open; else
  /// OneNote's window wherever it is. Command thread.
  platform::Backend Choose();

  /// Ends what a command waits for, for good. GUI thread, before the command thread is joined.
  void Stop();

  /// Tells the idle time, and whether OneNote or the practice notebook is open. Opens the native desktop at
  /// the first question, not before. Command thread.
  platform::Desktop& idleSource();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quill::ui
