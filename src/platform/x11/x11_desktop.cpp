#include "platform/x11/x11_desktop.h"

#include "platform/script/script_parser.h"
#include "platform/x11/x11_idle.h"
#include "platform/x11/x11_window_finder.h"

namespace quill::platform::x11 {

X11Desktop::X11Desktop(X11Connection& connection, X11Pasteboard& pasteboard, const X11Notes& notes,
                       std::function<std::string()> targetPattern)
    : m_world{connection, pasteboard, notes, std::move(targetPattern), {}} {}

ScriptResult X11Desktop::RunScript(std::string_view script) {
  const Result<script::Program> program = script::ParseScript(script);
  if (!program.ok()) return {ScriptProblem::BadScript, program.error()};
  ScriptResult result = X11ScriptRunner(m_world).Run(*program);
  if (m_world.connection.Broken()) return {ScriptProblem::Unsupported, "the X display is gone"};
  return result;
}

bool X11Desktop::ApplicationInstalled(std::string_view bundlePath) {
  return bundlePath.find("OneNote") != std::string_view::npos && OneNoteRunning();
}

bool X11Desktop::OneNoteRunning() {
  return FindWindow(m_world.connection, m_world.targetPattern()) != XCB_NONE;
}

std::int64_t X11Desktop::GetIdleSeconds() {
  return x11::GetIdleSeconds(m_world.connection);
}

bool X11Desktop::TargetIsActive() const {
  const xcb_window_t target = FindWindow(m_world.connection, m_world.targetPattern());
  return target != XCB_NONE && target == ActiveWindow(m_world.connection);
}

}  // namespace quill::platform::x11
