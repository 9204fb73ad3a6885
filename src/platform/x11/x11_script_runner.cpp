#include "platform/x11/x11_script_runner.h"

#include <algorithm>

#include "platform/x11/x11_keyboard.h"
#include "platform/x11/x11_window_finder.h"

namespace quill::platform::x11 {
namespace {

using namespace std::chrono_literals;
using std::chrono::milliseconds;

// The least that each wait is given, whatever the script's delay says.
constexpr milliseconds kModifiersUp = 2000ms;  // a user's hand on the hot key
constexpr milliseconds kActivation = 2000ms;   // another virtual desktop, a minimised window
constexpr milliseconds kCopy = 500ms;          // spent in full when nothing is selected, so no longer
constexpr milliseconds kPaste = 5000ms;        // a browser deletes a long selection first
constexpr milliseconds kKeyTaken = 2000ms;
constexpr milliseconds kWindowOpens = 5000ms;
constexpr milliseconds kSignOfLife = 1500ms;
/// How long a wait for the clipboard goes on before it looks whether the window still is there.
constexpr milliseconds kSlice = 20ms;

ScriptResult Problem(ScriptProblem problem, std::string detail) {
  return {problem, std::move(detail)};
}

bool IsOneNote(std::string_view application) {
  return application.find("OneNote") != std::string_view::npos;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : "+") + name;
  return all;
}

/// True when a script deletes the selection (Delete without a blank typed before it) and then pastes.
bool ReplacesSelection(const script::Program& program) {
  bool deleted = false;
  for (const script::Step& step : program) {
    if (const auto* code = std::get_if<script::KeyCode>(&step))
      deleted |= code->code == script::kKeyCodeDelete;
    if (const auto* key = std::get_if<script::Keystroke>(&step)) {
      return deleted && key->text == "v" && key->modifiers.command;
    }
  }
  return false;
}

}  // namespace

ScriptResult X11ScriptRunner::Run(const script::Program& program) {
  if (!CanSendKeys(m_world.connection)) return Problem(ScriptProblem::Unsupported, "XTEST");
  m_replaces = ReplacesSelection(program);
  for (const script::Step& step : program) {
    ScriptResult result = Perform(step);
    if (!result.ok()) return result;
  }
  return Await(Seconds(0));
}

ScriptResult X11ScriptRunner::Perform(const script::Step& step) {
  return std::visit([this](const auto& s) { return On(s); }, step);
}

ScriptResult X11ScriptRunner::FindTarget(std::string_view application) {
  if (!IsOneNote(application)) return Problem(ScriptProblem::TargetMissing, std::string(application));
  if (m_target) return {};
  const std::string pattern = m_world.targetPattern();
  xcb_window_t window = XCB_NONE;
  if (m_replaces && m_world.copiedFrom != XCB_NONE) {
    window = std::exchange(m_world.copiedFrom, XCB_NONE);
  } else {
    m_world.connection.WaitUntil(In(m_opened ? kWindowOpens : 0ms), [&] {
      return (window = FindWindow(m_world.connection, pattern)) != XCB_NONE;
    });
  }
  if (window == XCB_NONE) return Problem(ScriptProblem::TargetMissing, pattern);
  m_target = std::make_unique<X11Target>(m_world.connection, window);
  m_world.notes.Add("target: window \"" + m_target->Title() + "\"");
  return m_target->Exists() ? ScriptResult{} : Closed();
}

ScriptResult X11ScriptRunner::On(const script::Activate& step) {
  if (m_pending == Pending::ModifiersUp) {
    ScriptResult up = Await(Seconds(0));
    if (!up.ok()) return up;
  }
  ScriptResult found = FindTarget(step.application);
  if (!found.ok()) return found;
  if (m_target->Look() == TargetState::Ready) return {};
  m_target->AskToBecomeActive();
  m_pending = Pending::Activation;
  return {};
}

ScriptResult X11ScriptRunner::On(const script::OpenLocation& step) {
  if (!m_world.openLocation) return Problem(ScriptProblem::Unsupported, "open location");
  m_opened = m_world.openLocation(step.url);
  return m_opened ? ScriptResult{} : Problem(ScriptProblem::TargetMissing, step.application);
}

ScriptResult X11ScriptRunner::On(const script::RunMacro& step) {
  return Problem(ScriptProblem::Unsupported, "macro " + step.macro);
}

ScriptResult X11ScriptRunner::On(const script::Keystroke& step) {
  ScriptResult found = FindTarget(step.process);
  const bool command = step.modifiers.command;
  const bool copies =
      command && (step.text == "c" || step.text == "x" || (step.text == "p" && step.modifiers.control));
  const Pending next = copies                        ? Pending::Copy
                       : command && step.text == "v" ? Pending::Paste
                                                     : Pending::KeyTaken;
  for (std::size_t i = 0; found.ok() && i < step.text.size(); ++i) {
    found = Press(m_keys.ForCharacter(step.text[i], step.modifiers), std::string(1, step.text[i]), next);
  }
  return found;
}

ScriptResult X11ScriptRunner::On(const script::KeyCode& step) {
  ScriptResult found = FindTarget(step.process);
  if (!found.ok()) return found;
  return Press(m_keys.ForCarbonCode(step.code, step.modifiers), "key code " + std::to_string(step.code),
               Pending::KeyTaken);
}

ScriptResult X11ScriptRunner::Press(const std::optional<KeyChord>& chord, const std::string& name,
                                    Pending next) {
  if (!chord) return Problem(ScriptProblem::BadScript, "no key for \"" + name + "\" on this keyboard");
  if (m_pending == Pending::ModifiersUp || m_pending == Pending::Activation) {
    ScriptResult ready = Await(Seconds(0));
    if (!ready.ok()) return ready;
  }
  if (next == Pending::Copy) m_world.pasteboard.ExpectCopyFrom(m_target->window());
  if (next == Pending::Paste) m_world.pasteboard.WatchTakers(m_target->window());
  ScriptResult sent = SendWhenReady(*chord);
  m_pending = sent.ok() ? next : Pending::Nothing;
  m_world.notes.Add((sent.ok() ? "key sent: " : "key not sent: ") + name);
  return sent;
}

ScriptResult X11ScriptRunner::SendWhenReady(const KeyChord& chord) {
  const Deadline deadline = In(kModifiersUp);
  for (;;) {
    TargetState state;
    std::vector<std::string> held;
    bool grabbed = false;
    {
      const ServerGrab grab(m_world.connection.get());
      state = m_target->Look();
      if (state == TargetState::Ready) {
        held = m_keys.HeldModifiers();
        grabbed = KeyboardIsGrabbed(m_world.connection);
        if (held.empty() && !grabbed) SendChord(m_world.connection, chord);
      }
    }
    if (state != TargetState::Ready) return NotReady(state);
    if (held.empty() && !grabbed) return {};
    if (!held.empty()) {
      const ScriptResult up = AwaitModifiersUp(deadline);
      if (!up.ok()) return up;
    } else if (!m_world.connection.WaitUntil(deadline,
                                             [&] { return !KeyboardIsGrabbed(m_world.connection); })) {
      return Problem(ScriptProblem::FocusLost, "another program holds the keyboard");
    }
  }
}

ScriptResult X11ScriptRunner::NotReady(TargetState state) const {
  if (state == TargetState::Closed) return Closed();
  return Problem(ScriptProblem::FocusLost, WindowTitle(m_world.connection, ActiveWindow(m_world.connection)));
}

ScriptResult X11ScriptRunner::Closed() const {
  return Problem(ScriptProblem::TargetClosed, m_world.targetPattern());
}

ScriptResult X11ScriptRunner::Await(Seconds bound) {
  const auto atLeast = [&](milliseconds least) {
    return In(std::max(least, std::chrono::duration_cast<milliseconds>(bound)));
  };
  switch (std::exchange(m_pending, Pending::Nothing)) {
    case Pending::Nothing:
      return {};
    case Pending::ModifiersUp:
      return AwaitModifiersUp(atLeast(kModifiersUp));
    case Pending::Activation:
      return AwaitActivation(atLeast(kActivation));
    case Pending::Copy:
      return AwaitCopy(atLeast(kCopy));
    case Pending::Paste:
      return AwaitPaste(atLeast(kPaste));
    case Pending::KeyTaken:
      return AwaitKeyTaken(atLeast(kKeyTaken));
  }
  return {};
}

ScriptResult X11ScriptRunner::AwaitModifiersUp(Deadline deadline) {
  std::vector<std::string> held;
  const bool up = m_world.connection.WaitUntil(deadline, [&] {
    std::vector<std::string> now = m_keys.HeldModifiers();
    if (!now.empty() && held.empty()) m_world.notes.Add("waiting for a modifier key: " + Joined(now));
    held = std::move(now);
    return held.empty();
  });
  return up ? ScriptResult{} : Problem(ScriptProblem::ModifierHeld, Joined(held));
}

ScriptResult X11ScriptRunner::AwaitActivation(Deadline deadline) {
  TargetState state = TargetState::NotActive;
  const bool ready = m_world.connection.WaitUntil(deadline, [&] {
    state = m_target->Look();
    return state == TargetState::Ready || state == TargetState::Closed;
  });
  if (state == TargetState::Closed) return Closed();
  m_world.notes.Add(ready ? "target is active" : "target did not become active");
  return ready ? ScriptResult{} : Problem(ScriptProblem::TargetNotActive, m_target->Title());
}

ScriptResult X11ScriptRunner::AwaitCopy(Deadline deadline) {
  const auto started = std::chrono::steady_clock::now();
  const auto copied = [&] {
    const auto spent = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - started);
    m_world.notes.Add("target copied after " + std::to_string(spent.count()) + " ms");
    m_world.copiedFrom = m_target->window();
    return ScriptResult{};
  };
  while (std::chrono::steady_clock::now() < deadline) {
    if (m_world.pasteboard.WaitForCopy(std::min(deadline, In(kSlice)))) return copied();
    if (!m_target->Exists()) return Closed();
  }
  const Pong pong = m_target->Ping(In(kSignOfLife));
  if (m_world.pasteboard.WaitForCopy(In(0ms))) return copied();
  if (pong == Pong::Closed) return Closed();
  const std::string other =
      m_world.pasteboard.SomebodyElseWrote() ? "another program wrote to the clipboard" : "";
  return Problem(pong == Pong::Silent ? ScriptProblem::NoAnswer : ScriptProblem::NothingCopied, other);
}

ScriptResult X11ScriptRunner::AwaitPaste(Deadline deadline) {
  if (!m_world.pasteboard.OwnedByUs()) return AwaitKeyTaken(deadline);
  Taker taker = Taker::Nobody;
  while (taker != Taker::Target && std::chrono::steady_clock::now() < deadline) {
    taker = m_world.pasteboard.WaitForTaker(m_target->window(), std::min(deadline, In(kSlice)));
    if (taker != Taker::Target && !m_target->Exists()) return Closed();
  }
  m_world.notes.Add(taker == Taker::Target         ? "target has read the clipboard"
                    : taker == Taker::SomebodyElse ? "some program has read the clipboard"
                                                   : "nobody has read the clipboard");
  if (taker != Taker::Nobody) return {};
  return Problem(ScriptProblem::NoAnswer, m_target->Title());
}

ScriptResult X11ScriptRunner::AwaitKeyTaken(Deadline deadline) {
  switch (m_target->Ping(deadline)) {
    case Pong::Answered:
    case Pong::NotSupported:
      return {};
    case Pong::Silent:
      return Problem(ScriptProblem::NoAnswer, m_target->Title());
    case Pong::Closed:
      return Closed();
  }
  return {};
}

}  // namespace quill::platform::x11
