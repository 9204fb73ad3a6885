#pragma once
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/script/script_step.h"

namespace quill::platform::practice {

/// One key press as a script means it: a text (one character when there are modifiers) or a Carbon
/// virtual key code.
struct Keys {
  std::string text;
  int keyCode = -1;  ///< used when `text` is empty
  script::Modifiers modifiers;

  bool operator==(const Keys&) const = default;
};

/// The practice notebook as scripts drive it. Called from the command thread: each method hands its work to
/// the window's thread and waits with a deadline. Keys reach the notebook's page directly, so no other
/// window can get them, whichever has the keyboard.
class PracticeTarget {
 public:
  virtual ~PracticeTarget() = default;

  /// True while the notebook's window is open, minimised included.
  virtual bool IsOpen() = 0;

  /// Opens the window if need be, asks for it to be the front one, and returns when its page is loaded and
  /// takes keys. `NoAnswer` when that does not happen in time.
  virtual ScriptProblem Show() = 0;

  /// Presses keys and returns when the page has handled them: what a copy yields is on the clipboard, what
  /// a paste inserts is on the page. `NothingCopied` when a copy finds nothing selected, `TargetClosed`
  /// without a window, `NoAnswer` at the deadline, `Unsupported` for a shortcut the notebook does not have.
  virtual ScriptProblem Press(const Keys& keys) = 0;

  /// Opens the page that a client link ("onenote:…") leads to, as `Show` does. `TargetMissing` when the
  /// notebook has no such page.
  virtual ScriptProblem OpenLink(std::string_view link) = 0;
};

}  // namespace quill::platform::practice
