#include "platform/x11/x11_backend.h"

#include "platform/posix/preferred_languages.h"
#include "platform/posix/xdg_workspace.h"
#include "platform/x11/x11_desktop.h"

namespace quill::platform::x11 {

/// In the order of dependence: the last is destroyed first.
struct X11Backend::Parts {
  X11Notes notes;
  std::unique_ptr<X11Connection> connection;
  std::unique_ptr<X11Pasteboard> pasteboard;
  std::unique_ptr<X11Desktop> desktop;
};

Result<std::unique_ptr<X11Backend>> X11Backend::Open(const char* display,
                                                     std::function<std::string()> targetPattern) {
  auto parts = std::make_unique<Parts>();
  Result<std::unique_ptr<X11Connection>> connection = X11Connection::Open(display);
  if (!connection.ok()) return Failure{connection.error()};
  parts->connection = std::move(*connection);
  Result<std::unique_ptr<X11Pasteboard>> pasteboard =
      X11Pasteboard::Open(display, *parts->connection, parts->notes);
  if (!pasteboard.ok()) return Failure{pasteboard.error()};
  parts->pasteboard = std::move(*pasteboard);
  parts->desktop = std::make_unique<X11Desktop>(*parts->connection, *parts->pasteboard, parts->notes,
                                                std::move(targetPattern));
  return std::unique_ptr<X11Backend>(new X11Backend(std::move(parts)));
}

X11Backend::X11Backend(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}
X11Backend::~X11Backend() = default;

Desktop& X11Backend::desktop() {
  return *m_parts->desktop;
}
Pasteboard& X11Backend::pasteboard() {
  return *m_parts->pasteboard;
}
bool X11Backend::TargetIsActive() {
  return m_parts->desktop->TargetIsActive();
}

void X11Backend::OnNote(std::function<void(std::string_view)> sink) {
  m_parts->notes.SendTo(std::move(sink));
}
void X11Backend::OnOpenLocation(std::function<bool(std::string_view)> open) {
  m_parts->desktop->OnOpenLocation(std::move(open));
}

}  // namespace quill::platform::x11

namespace quill::platform {

Result<std::unique_ptr<NativeBackend>> OpenNativeBackend(std::function<std::string()> targetPattern) {
  auto backend = x11::X11Backend::Open(nullptr, std::move(targetPattern));
  if (!backend.ok()) return Failure{backend.error()};
  // A link to a page goes to whatever the desktop has for it.
  const std::shared_ptr<Workspace> workspace = OpenWorkspace();
  (*backend)->OnOpenLocation([workspace](std::string_view url) { return workspace->OpenUrl(url).ok(); });
  return std::unique_ptr<NativeBackend>(std::move(*backend));
}

const bool kFindsWindowsByTitle = true;

std::vector<std::string> PreferredLanguages() {
  return LanguagesOfEnvironment();
}

std::unique_ptr<Workspace> OpenWorkspace() {
  return std::make_unique<XdgWorkspace>();
}

}  // namespace quill::platform
