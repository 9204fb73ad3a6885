#include "platform/desktop.h"

namespace quill::platform {

std::string_view ScriptProblemKey(ScriptProblem problem) {
  switch (problem) {
    case ScriptProblem::None:
      return "";
    case ScriptProblem::BadScript:
      return "errScriptBad";
    case ScriptProblem::NotPermitted:
      return "errScriptNotPermitted";
    case ScriptProblem::TargetMissing:
      return "errScriptTargetMissing";
    case ScriptProblem::TargetNotActive:
      return "errScriptTargetNotActive";
    case ScriptProblem::FocusLost:
      return "errScriptFocusLost";
    case ScriptProblem::ModifierHeld:
      return "errScriptModifierHeld";
    case ScriptProblem::NothingCopied:
      return "msgLoadTextError";
    case ScriptProblem::NoAnswer:
      return "errScriptNoAnswer";
    case ScriptProblem::TargetClosed:
      return "errScriptTargetClosed";
    case ScriptProblem::Unsupported:
      return "errScriptUnsupported";
  }
  return "";
}

}  // namespace quill::platform
