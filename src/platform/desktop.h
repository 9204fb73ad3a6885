#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace quill::platform {

/// What kept a script from doing its work. The texts shown to the user are in the string table under
/// the key that `ScriptProblemKey` gives.
enum class ScriptProblem {
  None,
  BadScript,        ///< the text is outside the subset that this backend can perform
  NotPermitted,     ///< the system does not let this program send keys
  TargetMissing,    ///< OneNote (its window) was not found
  TargetNotActive,  ///< its window could not be brought to the front in time
  FocusLost,        ///< another window took the keyboard between two steps
  ModifierHeld,     ///< a modifier key stayed down
  NothingCopied,    ///< the application is alive and copied nothing: nothing is selected
  NoAnswer,         ///< the application did not react in time
  TargetClosed,     ///< its window went away meanwhile
  Unsupported,      ///< this desktop cannot send keys to other windows
};

/// The outcome of one script. `detail` names what was seen (a window's title, a key) for the log and
/// for `--explain`; it never holds page content.
struct ScriptResult {
  ScriptProblem problem = ScriptProblem::None;
  std::string detail;

  bool ok() const { return problem == ScriptProblem::None; }
};

/// The string-table key of a problem's message; empty for `None`.
std::string_view ScriptProblemKey(ScriptProblem problem);

/// The desktop as far as a command needs it. Called from the command thread only.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// Runs one AppleScript text to its end: brings the target to the front and sends its keys. On
  /// platforms without AppleScript the text is parsed (`script/script_parser.h`) and performed.
  virtual ScriptResult RunScript(std::string_view script) = 0;

  /// True when an application bundle such as "/Applications/Microsoft Word.app" is installed; where
  /// there are no bundles, when the backend knows how to reach what the bundle stands for.
  virtual bool ApplicationInstalled(std::string_view bundlePath) = 0;

  /// True while OneNote, or what stands for it on this platform, is open.
  virtual bool OneNoteRunning() = 0;

  /// Whole seconds since the user's last key or pointer event; −1 when the system does not tell.
  virtual std::int64_t GetIdleSeconds() = 0;
};

}  // namespace quill::platform
