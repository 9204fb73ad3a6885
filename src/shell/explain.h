#pragma once
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace quill::shell {

/// Takes down why a command did what it did (`--explain`) and how long its scopes took (`--stats`).
/// Off by default: then a call is one test of a flag. Belongs to the command thread.
class Explain {
 public:
  using Sink = std::function<void(std::string_view line)>;

  /// Sends the steps, the timings or both to a sink, one line at a time; an empty sink turns it off.
  void SendStepsTo(Sink sink) { m_steps = std::move(sink); }
  void SendTimingsTo(Sink sink) { m_timings = std::move(sink); }

  bool on() const { return static_cast<bool>(m_steps); }

  /// Notes one step. The text never holds page content, only lengths, numbers and names of steps.
  void Note(std::string_view line) {
    if (m_steps) m_steps(line);
  }

  /// Times a scope; the line is written when the object goes.
  class Scope {
   public:
    Scope(Explain& owner, std::string_view name);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Explain& m_owner;
    std::string_view m_name;
    std::chrono::steady_clock::time_point m_start;
  };

 private:
  Sink m_steps;
  Sink m_timings;
};

}  // namespace quill::shell
