#pragma once
#include <chrono>
#include <string>
#include <string_view>

namespace quill::cli {

/// A line on standard error that tells how far a job is and is written over again and again. Only on a
/// terminal; in a file or a pipe there is none.
class TerminalProgress {
 public:
  explicit TerminalProgress(std::string_view what);
  /// Takes the line away.
  ~TerminalProgress();
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;

  /// How far the job is, 0 to 1 (negative: unknown), and what it works on. Written ten times a second at
  /// most.
  void Set(double fraction, std::string_view detail);

 private:
  std::string m_what;
  bool m_isTerminal;
  std::chrono::steady_clock::time_point m_last{};
  bool m_isShown = false;
};

/// A name on one line of a terminal: control characters, which could steer it, become "?".
std::string Printable(std::string_view name);

}  // namespace quill::cli
