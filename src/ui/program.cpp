#include "ui/program.h"

#include <QApplication>
#include <QMetaObject>

#include "platform/posix/local_channel.h"

namespace quill::ui {

Program::Program(const std::filesystem::path& root)
    : m_ui(m_strings),
      m_startGlobals(shell::InitGlobals(root, m_clock)),
      m_practice(m_startGlobals.folders.SupportFolder / "Practice", m_strings),
      m_backends(m_practice, [this] { return m_application->TargetWindowPattern(); }),
      m_tray(m_strings, {[this](const shell::CommandRow& row, std::optional<std::int64_t> argument) {
                           RunAction(row, argument);
                         },
                         [this] { OpenPractice(); }, [] { QApplication::quit(); }}) {
  const std::string damaged =
      m_startGlobals.settingsProblem.empty() ? "" : m_startGlobals.folders.SettingsFile.string() + ".bad";
  m_application = std::make_unique<shell::Application>(
      shell::Application::Parts{std::move(m_startGlobals), m_strings, m_clock, m_ui,
                                [this] { return m_backends.Choose(); }, m_backends.idleSource(), m_log});
  m_tray.Show();
  if (!damaged.empty()) m_ui.Tell(m_strings.Format("msgSettingsDamaged", {damaged}));
}

Program::~Program() {
  m_ui.Close();
  m_backends.Stop();
  m_channel.reset();
  m_application.reset();
}

bool Program::ListenForTriggers(const std::filesystem::path& root) {
  const Result<std::filesystem::path> path = platform::LocalChannelPath(root);
  if (!path.ok()) return true;  // no private folder, no channel; everything else works
  auto server = platform::LocalChannelServer::Listen(
      *path, [this](std::string_view line) { return m_application->Answer(line); });
  if (!server.ok()) return false;
  m_channel = std::move(*server);
  return true;
}

void Program::OpenPractice() {
  const Status<> opened = m_practice.Open();
  if (!opened.ok()) m_ui.Tell(m_strings.Format("errPluginMissing", {opened.error()}));
}

void Program::RunAction(const shell::CommandRow& row, std::optional<std::int64_t> argument) {
  m_application->Run({&row, argument}, [this](const shell::Outcome& outcome) {
    if (outcome.ran || outcome.messages.empty()) return;
    QMetaObject::invokeMethod(
        qApp, [this, text = outcome.messages.front()] { m_ui.Tell(text); }, Qt::QueuedConnection);
  });
}

}  // namespace quill::ui
