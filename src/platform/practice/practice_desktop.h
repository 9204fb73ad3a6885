#pragma once
#include <cstdint>
#include <functional>

#include "platform/desktop.h"
#include "platform/practice/practice_target.h"
#include "platform/script/script_step.h"

namespace quill::platform::practice {

/// Performs scripts on the practice notebook. A `delay` needs no time here: every key press returns only
/// when it has had its effect. Called from the command thread.
class PracticeDesktop final : public Desktop {
 public:
  /// `idleSeconds` tells the system's idle time; without it the time is unknown.
  explicit PracticeDesktop(PracticeTarget& target, std::function<std::int64_t()> idleSeconds = {});

  ScriptResult RunScript(std::string_view script) override;

  /// Only OneNote is installed here; the notebook is it.
  bool ApplicationInstalled(std::string_view bundlePath) override;
  bool OneNoteRunning() override;
  std::int64_t GetIdleSeconds() override;

 private:
  ScriptResult Perform(const script::Step& step);
  ScriptResult Press(const std::string& process, const Keys& keys);

  PracticeTarget& m_target;
  std::function<std::int64_t()> m_idleSeconds;
};

}  // namespace quill::platform::practice
