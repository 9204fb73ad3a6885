#include "platform/practice/practice_desktop.h"

#include <utility>
#include <variant>

#include "platform/script/script_parser.h"

namespace quill::platform::practice {
namespace {

constexpr std::string_view kOneNoteBundle = "/Applications/Microsoft OneNote.app";
constexpr std::string_view kOneNoteName = "Microsoft OneNote";
constexpr std::string_view kClientScheme = "onenote:";

bool IsOneNote(std::string_view application) {
  return application == kOneNoteName || application == kOneNoteBundle;
}

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

PracticeDesktop::PracticeDesktop(PracticeTarget& target, std::function<std::int64_t()> idleSeconds)
    : m_target(target), m_idleSeconds(std::move(idleSeconds)) {}

ScriptResult PracticeDesktop::RunScript(std::string_view script) {
  const Result<script::Program> program = script::ParseScript(script);
  if (!program.ok()) return {ScriptProblem::BadScript, program.error()};
  for (const script::Step& step : *program) {
    ScriptResult result = Perform(step);
    if (!result.ok()) return result;
  }
  return {};
}

ScriptResult PracticeDesktop::Perform(const script::Step& step) {
  const auto show = [this](const std::string& application) -> ScriptResult {
    if (!IsOneNote(application)) return {ScriptProblem::Unsupported, application};
    return {m_target.Show(), application};
  };
  return std::visit(
      Overloaded{
          [](const script::Delay&) { return ScriptResult{}; },
          [&](const script::Activate& step_) { return show(step_.application); },
          [&](const script::Reopen& step_) { return show(step_.application); },
          [&](const script::Keystroke& step_) {
            return Press(step_.process, Keys{step_.text, -1, step_.modifiers});
          },
          [&](const script::KeyCode& step_) {
            return Press(step_.process, Keys{{}, step_.code, step_.modifiers});
          },
          [&](const script::OpenLocation& step_) -> ScriptResult {
            if (!IsOneNote(step_.application) || !std::string_view(step_.url).starts_with(kClientScheme)) {
              return {ScriptProblem::Unsupported, step_.application};
            }
            return {m_target.OpenLink(step_.url), step_.application};
          },
          [](const script::RunMacro& step_) {
            return ScriptResult{ScriptProblem::Unsupported, step_.application};
          },
      },
      step);
}

ScriptResult PracticeDesktop::Press(const std::string& process, const Keys& keys) {
  if (!IsOneNote(process)) return {ScriptProblem::Unsupported, process};
  const ScriptProblem problem = m_target.Press(keys);
  return {problem, keys.text.empty() ? "key code " + std::to_string(keys.keyCode) : keys.text};
}

bool PracticeDesktop::ApplicationInstalled(std::string_view bundlePath) {
  return bundlePath == kOneNoteBundle;
}

bool PracticeDesktop::OneNoteRunning() {
  return m_target.IsOpen();
}

std::int64_t PracticeDesktop::GetIdleSeconds() {
  return m_idleSeconds ? m_idleSeconds() : -1;
}

}  // namespace quill::platform::practice
