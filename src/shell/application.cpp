#include "shell/application.h"

#include <future>
#include <nlohmann/json.hpp>

#include "platform/posix/memory_policy.h"
#include "shell/shortcut_installer.h"
#include "shell/url_handler.h"
#include "shell/window_requests.h"

namespace quill::shell {
namespace {

constexpr std::chrono::seconds kHousekeepingPeriod(1);

/// Keeps alerts for a caller who is not in front of the screen; everything else goes to the screen.
class CollectingInterface final : public platform::UserInterface {
 public:
  CollectingInterface(platform::UserInterface& screen, std::vector<std::string>& messages)
      : m_screen(screen), m_messages(messages) {}

  void ShowMessage(std::string_view text) override { m_messages.emplace_back(text); }
  bool AskYesNo(std::string_view question) override { return m_screen.AskYesNo(question); }
  std::optional<std::filesystem::path> AskSavePath(const platform::SavePanel& panel) override {
    return m_screen.AskSavePath(panel);
  }
  std::vector<std::filesystem::path> AskOpenPaths(const platform::OpenPanel& panel) override {
    return m_screen.AskOpenPaths(panel);
  }
  std::optional<std::string> AskText(const platform::TextQuestion& question) override {
    return m_screen.AskText(question);
  }
  std::unique_ptr<platform::Progress> BeginProgress(std::string_view title) override {
    return m_screen.BeginProgress(title);
  }
  void ShowWindow(std::any request) override { m_screen.ShowWindow(std::move(request)); }
  std::any RunWindow(std::any request) override { return m_screen.RunWindow(std::move(request)); }

 private:
  platform::UserInterface& m_screen;
  std::vector<std::string>& m_messages;
};

/// Has a backend's notes taken down for as long as it lives.
class NotesOf {
 public:
  NotesOf(const platform::Backend& backend, Explain& explain) : m_backend(backend) {
    if (m_backend.sendNotesTo && explain.on()) {
      m_backend.sendNotesTo([&explain](std::string_view line) { explain.Note(line); });
    }
  }
  ~NotesOf() {
    if (m_backend.sendNotesTo) m_backend.sendNotesTo(nullptr);
  }
  NotesOf(const NotesOf&) = delete;
  NotesOf& operator=(const NotesOf&) = delete;

 private:
  const platform::Backend& m_backend;
};

const CommandRow* RequestedRow(const nlohmann::json& action) {
  if (action.is_number_integer()) return FindCommandByNumber(action.get<std::int64_t>());
  if (action.is_string()) return FindCommand(action.get_ref<const std::string&>());
  return nullptr;
}

std::string OutcomeLine(std::string_view action, const Outcome& outcome) {
  const nlohmann::json answer = {
      {"ok", outcome.ran}, {"action", action}, {"messages", outcome.messages}, {"steps", outcome.steps}};
  return answer.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string ErrorLine(std::string_view text) {
  return nlohmann::json{{"ok", false}, {"error", text}}.dump(-1, ' ', false,
                                                             nlohmann::json::error_handler_t::replace);
}

}  // namespace

Application::Application(Parts parts)
    : m_parts(std::move(parts)),
      m_housekeeping(m_parts.globals, m_parts.idleSource, m_parts.clock),
      m_settingsWatch(m_parts.globals.folders.SettingsFile) {
  const auto post = [this](std::function<void()> job) { m_thread->Post(std::move(job)); };
  if (m_parts.engines.http != nullptr)
    m_requests = std::make_unique<BackgroundRequests>(m_parts.engines.http, post);
  if (m_parts.engines.processes != nullptr)
    m_processes = std::make_unique<BackgroundProcesses>(m_parts.engines.processes, post);
  m_thread = std::make_unique<CommandThread>([this] { Tick(); }, kHousekeepingPeriod);
  m_thread->Post([this, thread = m_thread.get()] { BeginWatching(*thread); });
}

Application::~Application() {
  // While there is a thread for their answers.
  if (m_requests) m_requests->Stop();
  if (m_processes) m_processes->Stop();
}

void Application::Tick() {
  m_housekeeping.Tick();
  if (m_pageWatch) m_pageWatch->Tick();
}

void Application::BeginWatching(CommandThread& thread) {
  const auto askForScreen = [this, &thread](std::function<void(bool)> answer) {
    const auto take = [this, &thread, answer = std::move(answer)](bool isFree) {
      thread.Post([this, answer, isFree] {
        if (isFree) ReadChangedSettings();
        answer(isFree);
      });
    };
    m_parts.askForScreen ? m_parts.askForScreen(take) : take(true);
  };
  m_housekeeping.WaitForScreen(askForScreen);
  if (m_processes) {
    m_backupJob = std::make_unique<BackupJob>(m_parts.globals, *m_processes, m_parts.idleSource, m_parts.log);
    m_backupJob->AddTo(m_housekeeping);
  }
  if (!m_requests) return;
  m_updateJobs = std::make_unique<UpdateJobs>(
      UpdateJobs::Parts{m_parts.globals, *m_requests, m_parts.ui, m_parts.workspace, m_parts.log});
  m_updateJobs->AddTo(m_housekeeping);
  m_pageWatch = std::make_unique<PageWatch>(PageWatch::Parts{
      m_parts.globals, *m_requests, m_parts.clock, m_parts.ui, m_parts.strings, m_parts.log, askForScreen});
}

void Application::ReadChangedSettings() {
  if (!m_settingsWatch.Changed()) return;
  LoadSettings(m_parts.globals);
  if (m_parts.onSettingsRead) m_parts.onSettingsRead(m_parts.globals.settings);
}

Outcome Application::Execute(const JobOptions& options, const Job& job) {
  Outcome outcome;
  outcome.ran = true;
  CollectingInterface collecting(m_parts.ui, outcome.messages);
  Explain explain;
  if (options.explain) {
    explain.SendStepsTo([&outcome](std::string_view line) { outcome.steps.emplace_back(line); });
    explain.SendTimingsTo([&outcome](std::string_view line) { outcome.steps.emplace_back(line); });
  }
  platform::UserInterface& ui =
      options.messagesToCaller ? static_cast<platform::UserInterface&>(collecting) : m_parts.ui;
  ReadChangedSettings();
  const platform::Backend backend = m_parts.chooseBackend();
  explain.Note(std::string("target: ").append(backend.name));
  Services services{*backend.desktop, *backend.pasteboard, m_parts.workspace, ui,
                    m_parts.clock,    m_parts.strings,     explain,           m_parts.log,
                    m_parts.engines};
  if (backend.name == platform::kPracticeBackend) services.practiceService = m_parts.practiceService;
  const NotesOf notes(backend, explain);
  CommandContext context{services, m_parts.globals, options.argument};
  try {
    job(context);
  } catch (const std::exception& problem) {
    // Out of memory, say: the next command must still find a free thread.
    m_parts.log.Write(std::string("error: ").append(problem.what()));
    ui.ShowMessage(m_parts.strings.Format("errUnexpected", {problem.what()}));
  }
  return outcome;
}

void Application::Start(std::string name, JobOptions options, Job job,
                        const std::function<void(Outcome)>& done) {
  auto outcome = std::make_shared<Outcome>();
  const std::optional<std::string> busyWith = m_thread->TryRun(
      std::move(name),
      [this, options, job = std::move(job), outcome] {
        *outcome = Execute(options, job);
        platform::ReturnFreedMemory();
      },
      [outcome, done] { done(std::move(*outcome)); });
  if (busyWith) {
    Outcome refused;
    refused.messages.push_back(m_parts.strings.Format("msgBusy", {*busyWith}));
    done(std::move(refused));
  }
}

void Application::Run(const RunRequest& request, const std::function<void(Outcome)>& done) {
  const CommandRow& row = *request.row;
  if (row.handler == nullptr) {
    row.window(m_parts.ui);
    return done({true, {}, {}});
  }
  Start(
      std::string(m_parts.strings.Text(row.titleKey)),
      {request.argument.value_or(row.argument), request.messagesToCaller, request.explain},
      [&row](CommandContext& context) { row.handler(context, row); }, done);
}

void Application::RunJob(std::string name, Job job, const std::function<void(Outcome)>& done) {
  Start(std::move(name), {}, std::move(job), done);
}

void Application::Post(std::function<void(Globals&)> job) {
  m_thread->Post([this, job = std::move(job)] { job(m_parts.globals); });
}

void Application::AskMenuState(std::function<void(const MenuState&)> done) {
  m_thread->Post([this, done = std::move(done)] {
    ReadChangedSettings();
    done(LookAtMenuState(m_parts.chooseBackend(), m_parts.globals));
  });
}

void Application::OpenLink(std::string url, const std::function<void(Outcome)>& done) {
  if (!IsVariableLink(url)) return done({true, {}, {}});
  RunJob(
      std::string(m_parts.strings.Text("menuVarLink")),
      [url = std::move(url)](CommandContext& context) { ResponseClickOnVarLink(context, url); }, done);
}

void Application::InstallShortcut(const std::function<void(Outcome)>& done) {
  RunJob(std::string(m_parts.strings.Text("strInstallShortcut")), InstallCopyLinkShortcut, done);
}

Outcome Application::RunAndWait(const RunRequest& request) {
  std::promise<Outcome> promise;
  Run(request, [&promise](Outcome outcome) { promise.set_value(std::move(outcome)); });
  return promise.get_future().get();
}

std::string Application::Answer(std::string_view requestLine) {
  const nlohmann::json request = nlohmann::json::parse(requestLine, nullptr, false);
  if (!request.is_object()) return ErrorLine("the request is not a JSON object");
  if (request.contains("ping")) return nlohmann::json{{"ok", true}}.dump();
  if (request.contains("url") && request["url"].is_string()) return AnswerUrl(request["url"]);
  if (request.contains("install")) return AnswerInstall();
  if (!request.contains("trigger")) return ErrorLine("the request has no \"trigger\", \"url\" or \"ping\"");
  const CommandRow* row = RequestedRow(request["trigger"]);
  if (row == nullptr) return ErrorLine("no such action");
  RunRequest run{row, std::nullopt, true, request.value("explain", nlohmann::json(false)) == true};
  if (request.contains("argument") && request["argument"].is_number_integer())
    run.argument = request["argument"].get<std::int64_t>();
  return OutcomeLine(row->action, RunAndWait(run));
}

std::string Application::AnswerUrl(std::string url) {
  // Nobody waits: the program that was started with the link ends as soon as it is handed over.
  OpenLink(std::move(url), [this](const Outcome& outcome) { TellRefusal(outcome); });
  return nlohmann::json{{"ok", true}}.dump();
}

std::string Application::AnswerInstall() {
  InstallShortcut([this](const Outcome& outcome) { TellRefusal(outcome); });
  return nlohmann::json{{"ok", true}}.dump();
}

void Application::TellRefusal(const Outcome& outcome) {
  if (!outcome.ran) m_parts.ui.ShowWindow(NoticeRequest{outcome.messages.front()});
}

}  // namespace quill::shell
