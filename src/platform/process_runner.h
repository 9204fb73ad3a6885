#pragma once
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quill::platform {

/// A program to be run and waited for.
struct ProcessRequest {
  /// The program (a path, or a name that is looked up on PATH) and its arguments, each handed on as it
  /// stands.
  std::vector<std::string> command;
  std::filesystem::path folder;      ///< where it works; empty: where this process does
  std::optional<std::string> input;  ///< what it reads; nothing: the null device
  std::chrono::milliseconds deadline{60'000};
  std::size_t outputLimit = 16u << 20;  ///< bytes kept of each stream; the rest is read and dropped
  std::function<bool()>
      isCancelled;  ///< asked about twenty times a second on the calling thread; may be empty
};

enum class ProcessEnd {
  Exited,
  Signalled,  ///< a signal ended it
  NotFound,
  NotStarted,  ///< it is there, or may be, but the system could not run it
  TimedOut,
  Cancelled
};

struct ProcessResult {
  ProcessEnd end = ProcessEnd::NotStarted;
  int status = 0;      ///< the exit status, or the number of the signal
  std::string output;  ///< what it wrote up to its end, whatever that was
  std::string errors;
  bool isCut = false;  ///< one of the two was longer than the limit
  std::string reason;  ///< of `NotFound` and `NotStarted`, as the system tells it

  bool ok() const { return end == ProcessEnd::Exited && status == 0; }
};

/// Runs other programs. No shell ever sees a command. Any thread.
class ProcessRunner {
 public:
  virtual ~ProcessRunner() = default;

  /// Returns when the program has ended. At the deadline, or when cancelled, it is asked to end and half a
  /// second later made to, together with the programs that it started (unless they left its group).
  virtual ProcessResult Run(const ProcessRequest& request) = 0;
};

}  // namespace quill::platform
