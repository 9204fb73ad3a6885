#pragma once
#include <functional>
#include <memory>
#include <string_view>

namespace quill::shell {

/// The program's log: lines that begin with "--- ", in the system log. Made by main and passed on by
/// reference; lines may come from any thread. Tokens and headers of requests never go in.
class Log {
 public:
  struct Options {
    bool toSyslog = true;
    bool toStderr = false;
    bool pageContents = false;  ///< also what services answer: whole pages and lists of notebooks
  };

  /// Takes everything, writes nothing.
  Log();
  explicit Log(const Options& options);
  /// Sends finished lines to a function, for whoever keeps them elsewhere.
  Log(const Options& options, std::function<void(std::string_view line)> sink);
  ~Log();
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  /// One line, or several when the text has line breaks; other control characters become blanks.
  void Write(std::string_view text);

  /// An answer of a service: written as it is where page contents are wanted, else only its length.
  void WriteContent(std::string_view what, std::string_view content);

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quill::shell
