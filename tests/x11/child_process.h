#pragma once
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace quill::x11_test {

/// Another program for as long as this lives: its standard output is read line by line, its standard input is
/// written to, and it is ended with the object (asked first, then killed).
class ChildProcess {
 public:
  /// What the child finds in its environment besides this process's own.
  using Environment = std::vector<std::pair<std::string, std::string>>;

  /// `passWriteEndAs`: the option after which the number of a pipe for its output is appended ("-displayfd");
  /// empty: the pipe is its standard output.
  explicit ChildProcess(std::vector<std::string> command, const Environment& environment = {},
                        std::string_view passWriteEndAs = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Waits for a line that starts with `start` among all lines so far and those to come; returns the rest of
  /// it, or "(none)" at the deadline.
  std::string WaitForLine(std::string_view start,
                          std::chrono::milliseconds deadline = std::chrono::seconds(5));
  /// All lines so far, after reading what has arrived.
  const std::vector<std::string>& Lines();
  /// Writes a line to its standard input.
  void Say(std::string_view line);
  bool Running();
  int pid() const { return m_pid; }

 private:
  void ReadFor(std::chrono::milliseconds time);

  int m_pid = -1;
  int m_output = -1;
  int m_input = -1;
  std::string m_partial;
  std::vector<std::string> m_lines;
};

/// Asks `condition` every few milliseconds until it holds; false at the deadline.
template <class Condition>
bool Eventually(Condition condition, std::chrono::milliseconds deadline = std::chrono::seconds(5));

void PauseBetweenChecks();

template <class Condition>
bool Eventually(Condition condition, std::chrono::milliseconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= end) return false;
    PauseBetweenChecks();
  }
  return true;
}

}  // namespace quill::x11_test
