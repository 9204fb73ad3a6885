#include "ui/practice_host.h"

#include "platform/qt/gui_call.h"
#include "platform/qt/qt_pasteboard.h"
#include "ui/web_plugin.h"

namespace quill::ui {

using platform::ScriptProblem;

namespace {

/// The service starts in milliseconds; the window's thread may be drawing a large page.
constexpr auto kServiceDeadline = std::chrono::seconds(5);

}  // namespace

PracticeHost::PracticeHost(std::filesystem::path folder, const shell::StringTable& strings)
    : m_folder(std::move(folder)), m_strings(strings) {}

PracticeHost::~PracticeHost() = default;

Status<> PracticeHost::Open() {
  if (m_notebook == nullptr) {
    const Result<WebViews*> views = LoadWebViews();
    if (!views.ok()) return Failure{views.error()};
    auto notebook = (*views)->CreatePracticeNotebook({m_folder, m_strings});
    if (!notebook.ok()) return Failure{notebook.error()};
    m_pasteboard = std::make_unique<platform::qt::QtPasteboard>();
    m_notebook = std::move(*notebook);
    m_target = &m_notebook->Target();
  }
  m_notebook->Open();
  return Done();
}

Result<Endpoints> PracticeHost::Service() {
  const auto start = [this]() -> Result<Endpoints> {
    if (!IsOpen()) return Failure{std::string(m_strings.Text("errPracticeNotOpen"))};
    return m_notebook->StartService();
  };
  auto answer = platform::qt::CallOnThread(&m_guiThread, kServiceDeadline, start);
  if (!answer) return Failure{std::string(m_strings.Text("errPracticeNoAnswer"))};
  return *std::move(answer);
}

bool PracticeHost::IsOpen() {
  platform::practice::PracticeTarget* target = m_target;
  return target != nullptr && target->IsOpen();
}

ScriptProblem PracticeHost::Show() {
  platform::practice::PracticeTarget* target = m_target;
  return target != nullptr ? target->Show() : ScriptProblem::TargetMissing;
}

ScriptProblem PracticeHost::Press(const platform::practice::Keys& keys) {
  platform::practice::PracticeTarget* target = m_target;
  return target != nullptr ? target->Press(keys) : ScriptProblem::TargetMissing;
}

ScriptProblem PracticeHost::OpenLink(std::string_view link) {
  platform::practice::PracticeTarget* target = m_target;
  return target != nullptr ? target->OpenLink(link) : ScriptProblem::TargetMissing;
}

}  // namespace quill::ui
