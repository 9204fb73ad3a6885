#include "ui/program.h"

#include <QApplication>

#include "platform/curl/curl_http.h"
#include "platform/posix/local_channel.h"
#include "platform/posix/posix_process_runner.h"
#include "shell/language.h"
#include "shell/onenote_main.h"
#include "shell/recent_actions.h"
#include "shell/window_requests.h"
#include "ui/kit/key_text.h"
#include "ui/kit/on_gui.h"
#include "ui/kit/qt_text.h"
#include "ui/windows/win_ruler.h"

namespace quill::ui {
namespace {

shell::Engines OpenEngines() {
  shell::Engines engines;
  engines.processes = std::make_shared<platform::PosixProcessRunner>();
  engines.http = std::make_shared<platform::CurlHttp>();
  engines.dictionaries = tools::DictionaryHostsOfEnvironment();
  const std::vector<std::string> languages = platform::PreferredLanguages();
  if (!languages.empty()) engines.preferredLanguage = languages.front();
  return engines;
}

std::string_view LanguageFor(const std::string& setting) {
  return shell::ChooseLanguage(setting, platform::PreferredLanguages());
}

/// Nothing may come up in front of a menu or a modal window that is open.
void AskForScreen(std::function<void(bool isFree)> answer) {
  OnGui([answer = std::move(answer)] {
    answer(QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr);
  });
}

}  // namespace

Program::Program(const std::filesystem::path& root)
    : m_ui(m_strings, m_windows),
      m_startGlobals(StartGlobals(root)),
      m_folders(m_startGlobals.folders),
      m_rulers(std::make_shared<RulerMemory>()),
      m_language(m_startGlobals.settings.Language),
      m_practice(m_folders.SupportFolder / "Practice", m_strings),
      m_equations(m_strings),
      m_backends(m_practice, [this] { return m_application->TargetWindowPattern(); }),
      m_appearance([this](bool dark) { m_tray.UseDarkIcon(dark); }),
      m_hotKeys([this](const shell::CommandRow& row) { PressHotKey(row); }),
      m_recentActions(m_startGlobals.settings.RecentActions),
      m_palette(
          m_strings, [this] { return m_recentActions; },
          [this](const shell::CommandRow& row, std::optional<std::int64_t> argument) {
            RunAction(row, argument);
          }),
      m_tray(m_strings, {[this](const shell::CommandRow& row, std::optional<std::int64_t> argument) {
                           RunAction(row, argument);
                         },
                         [this] { RefreshMenu(); }, [this] { m_ui.ShowWindow(shell::PaletteRequest{}); }}) {
  const shell::Settings settings = m_startGlobals.settings;
  const std::string damaged =
      m_startGlobals.settingsProblem.empty() ? "" : m_folders.SettingsFile.string() + ".bad";
  m_application = std::make_unique<shell::Application>(shell::Application::Parts{
      std::move(m_startGlobals), m_strings, m_clock, m_ui, [this] { return m_backends.Choose(); },
      *m_workspace, m_backends.idleSource(), m_log,
      [this](const shell::Settings& read) { OnGui([this, read] { UseSettings(read); }); }, OpenEngines(),
      [this] { return m_practice.Service(); }, AskForScreen});
  AddHosts();
  AddWindows();
  AddToolWindows();
  if (m_links != nullptr) m_links->OnUrl([this](const std::string& url) { OpenLink(url); });
  m_hotKeys.OnStateChanged([this](const std::vector<HotKeyState>& state) { ShowHotKeys(state); });
  m_qtLanguage.Use(LanguageFor(m_language));
  m_tray.Show();
  UseSettings(settings);
  m_appearance.Start();
  if (!damaged.empty()) m_ui.Tell(m_strings.Format("msgSettingsDamaged", {damaged}));
}

shell::Globals Program::StartGlobals(const std::filesystem::path& root) {
  shell::Globals globals = shell::InitGlobals(root, m_clock);
  m_strings.UseLanguage(LanguageFor(globals.settings.Language));
  return globals;
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

void Program::TellRefusal(const shell::Outcome& outcome) {
  if (outcome.ran || outcome.messages.empty()) return;
  OnGui([this, text = outcome.messages.front()] { m_ui.Tell(text); });
}

void Program::RunAction(const shell::CommandRow& row, std::optional<std::int64_t> argument) {
  m_application->Run({&row, argument}, [this, &row, argument](const shell::Outcome& outcome) {
    // Afterwards: the command must not wait for the disk.
    if (outcome.ran) OnGui([this, &row, argument] { Remember(row, argument); });
    TellRefusal(outcome);
  });
}

void Program::OpenLink(const std::string& url) {
  m_application->OpenLink(url, [this](const shell::Outcome& outcome) { TellRefusal(outcome); });
}

void Program::InstallShortcut() {
  m_application->InstallShortcut([this](const shell::Outcome& outcome) { TellRefusal(outcome); });
}

void Program::Remember(const shell::CommandRow& row, std::optional<std::int64_t> argument) {
  if (row.place == shell::Place::Nowhere || row.group == shell::CommandGroup::Top) return;
  m_recentActions = shell::WithRecent(m_recentActions, shell::RecentName(row.action, argument));
  m_application->Post([recent = m_recentActions](shell::Globals& globals) {
    globals.settings.RecentActions = recent;
    // What was used last is a convenience: a full disk is told by what the user saves knowingly.
    static_cast<void>(shell::SaveSetting(globals, *shell::FindSetting("RecentActions")));
  });
}

void Program::RefreshMenu() {
  m_application->AskMenuState([this](const shell::MenuState& state) {
    OnGui([this, state] {
      m_tray.actions().Update(state);
      m_palette.Update(state);
    });
  });
}

void Program::UseSettings(const shell::Settings& settings) {
  if (settings.Language != m_language) UseLanguage(settings.Language);
  if (settings.HotKeys != m_hotKeySetting) {
    m_hotKeySetting = settings.HotKeys;
    m_hotKeys.Use(settings.HotKeys,
                  [this](const shell::CommandRow& row) { return std::string(m_strings.Text(row.titleKey)); });
  }
  m_options->Refresh();
}

void Program::UseLanguage(const std::string& setting) {
  m_language = setting;
  const std::string_view language = LanguageFor(setting);
  m_strings.UseLanguage(language);
  m_qtLanguage.Use(language);
  m_tray.Retranslate();
  m_palette.Retranslate();
  m_options->Retranslate();
}

void Program::ShowHotKeys(const std::vector<HotKeyState>& state) {
  std::map<const shell::CommandRow*, QKeySequence> keys;
  for (const HotKeyState& one : state) {
    if (one.problem == platform::HotKeyProblem::None) keys[one.row] = KeySequence(one.keys);
  }
  m_tray.actions().ShowHotKeys(std::move(keys));
  m_palette.Update(state);
  m_options->Update(state);
  TellTakenKeys(state);
}

void Program::TellTakenKeys(const std::vector<HotKeyState>& state) {
  std::string taken;
  for (const HotKeyState& one : state) {
    if (one.problem != platform::HotKeyProblem::Taken) continue;
    if (!taken.empty()) taken += ", ";
    taken += FromQt(HotKeyText(one.keys));
  }
  if (taken.empty() || std::exchange(m_toldTakenKeys, true)) return;
  m_ui.Tell(m_strings.Format("msgHotKeysTaken", {taken}));
}

void Program::PressHotKey(const shell::CommandRow& row) {
  if (!m_options->TakePressedHotKey(row)) RunAction(row, {});
}

void Program::PastePicture(const std::filesystem::path& png) {
  m_application->RunJob(
      std::string(m_strings.Text("menuViewImage")),
      [png](shell::CommandContext& context) {
        shell::NSOneNoteMain(context.services, context.globals).PastePng(png);
      },
      [this](const shell::Outcome& outcome) { TellRefusal(outcome); });
}

void Program::OpenPractice() {
  const Status<> opened = m_practice.Open();
  if (!opened.ok()) m_ui.Tell(m_strings.Format("errPluginMissing", {opened.error()}));
}

}  // namespace quill::ui
