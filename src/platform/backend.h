#pragma once
#include <functional>
#include <string_view>

#include "platform/desktop.h"
#include "platform/pasteboard.h"

namespace quill::platform {

inline constexpr std::string_view kPracticeBackend = "practice";

/// A desktop with the pasteboard that belongs to it.
struct Backend {
  std::string_view name;  ///< "x11", "practice" (`kPracticeBackend`), "mac", "none"
  Desktop* desktop;
  Pasteboard* pasteboard;
  /// Sets who gets the backend's own notes for `--explain`, or nobody; null when it takes none.
  std::function<void(std::function<void(std::string_view)>)> sendNotesTo = nullptr;
};

/// Picks the backend for the next command: what the user was working in. Called on the command thread.
using ChooseBackend = std::function<Backend()>;

/// The backend of a session where no other window can be reached and nothing else is open: every script
/// fails with the given problem, the pasteboard holds nothing.
class NoDesktop final : public Desktop, public Pasteboard {
 public:
  explicit NoDesktop(ScriptProblem problem) : m_problem(problem) {}

  ScriptResult RunScript(std::string_view) override { return {m_problem, {}}; }
  bool ApplicationInstalled(std::string_view) override { return false; }
  bool OneNoteRunning() override { return false; }
  std::int64_t GetIdleSeconds() override { return -1; }

  void Clear() override {}
  bool WaitForNewContents(std::chrono::milliseconds) override { return false; }
  Result<std::string, ReadProblem> Read(Flavour) override { return Failure{ReadProblem::Absent}; }
  bool Write(Flavour, std::string_view) override { return true; }
  PasteboardSnapshot Save() override { return {}; }
  void Restore(const PasteboardSnapshot&) override {}
  std::vector<std::string> FlavourNames() override { return {}; }

  Backend backend() { return {"none", this, this, nullptr}; }

 private:
  ScriptProblem m_problem;
};

}  // namespace quill::platform
