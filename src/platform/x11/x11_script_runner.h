#pragma once
#include <functional>
#include <memory>
#include <optional>

#include "platform/desktop.h"
#include "platform/script/script_step.h"
#include "platform/x11/x11_key_map.h"
#include "platform/x11/x11_notes.h"
#include "platform/x11/x11_pasteboard.h"
#include "platform/x11/x11_target.h"

namespace quill::platform::x11 {

/// What a script needs from around it, and what it leaves for the next one.
struct X11ScriptWorld {
  X11Connection& connection;
  X11Pasteboard& pasteboard;
  const X11Notes& notes;
  std::function<std::string()> targetPattern;
  std::function<bool(std::string_view url)> openLocation;  ///< may be empty
  xcb_window_t copiedFrom = XCB_NONE;                      ///< where the last copy came from
};

/// Performs one script on the target's window.
///
/// A `delay` waits for what the step before it has set going and ends with it; its seconds are a bound
/// (small ones are raised, see the .cpp). No key is sent unless the target is there, is the active window
/// and has the focus, no modifier is down and nobody has grabbed the keyboard; check and key are one step
/// for all other programs.
///
/// A script that deletes the selection before it pastes belongs to the window of the last copy, even when
/// another one that fits has become active since.
class X11ScriptRunner {
 public:
  explicit X11ScriptRunner(X11ScriptWorld& world) : m_world(world), m_keys(world.connection) {}

  ScriptResult Run(const script::Program& program);

 private:
  using Seconds = std::chrono::duration<double>;

  /// What the last step has set going.
  enum class Pending { Nothing, ModifiersUp, Activation, Copy, Paste, KeyTaken };

  ScriptResult Perform(const script::Step& step);
  ScriptResult On(const script::Delay& delay) { return Await(Seconds(delay.seconds)); }
  ScriptResult On(const script::Reopen&) { return {}; }
  ScriptResult On(const script::Activate& step);
  ScriptResult On(const script::Keystroke& step);
  ScriptResult On(const script::KeyCode& step);
  ScriptResult On(const script::OpenLocation& step);
  ScriptResult On(const script::RunMacro& step);

  ScriptResult Await(Seconds bound);
  ScriptResult AwaitModifiersUp(Deadline deadline);
  ScriptResult AwaitActivation(Deadline deadline);
  ScriptResult AwaitCopy(Deadline deadline);
  ScriptResult AwaitPaste(Deadline deadline);
  ScriptResult AwaitKeyTaken(Deadline deadline);

  ScriptResult FindTarget(std::string_view application);
  ScriptResult Press(const std::optional<KeyChord>& chord, const std::string& name, Pending next);
  ScriptResult SendWhenReady(const KeyChord& chord);
  ScriptResult NotReady(TargetState state) const;
  ScriptResult Closed() const;

  X11ScriptWorld& m_world;
  X11KeyMap m_keys;
  std::unique_ptr<X11Target> m_target;
  Pending m_pending = Pending::ModifiersUp;
  bool m_replaces = false;
  bool m_opened = false;
};

}  // namespace quill::platform::x11
