#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <deque>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/atomic_file.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/interrupts.h"
#include "online/page_history.h"
#include "online/page_monitor.h"
#include "platform/curl/curl_http.h"
#include "shell/globals.h"
#include "shell/online_session.h"
#include "tools/history_time.h"

namespace quill::cli {
namespace {

/// The requests of somebody who waits for them: each is sent when it is its turn.
class AwaitedRequests final : public platform::BackgroundHttp {
 public:
  explicit AwaitedRequests(platform::Http& http) : m_http(http) {}

  void Send(platform::HttpRequest request, Done done) override {
    request.isCancelled = WasInterrupted;
    m_waiting.emplace_back(std::move(request), std::move(done));
  }

  /// Sends what waits, and what follows from it.
  void Finish() {
    while (!m_waiting.empty() && !WasInterrupted()) {
      const auto [request, done] = std::move(m_waiting.front());
      m_waiting.pop_front();
      auto answer = m_http.Send(request);
      ++m_count;
      if (request.method == platform::HttpMethod::Get) m_status = answer.ok() ? answer->status : 0;
      m_problem = answer.ok() ? std::string_view() : platform::HttpProblemKey(answer.error().problem);
      done(std::move(answer));
    }
  }

  int count() const { return m_count; }
  int status() const { return m_status; }  ///< of the last answer but those with tokens; 0: none came
  std::string_view problem() const { return m_problem; }

 private:
  platform::Http& m_http;
  std::deque<std::pair<platform::HttpRequest, Done>> m_waiting;
  int m_count = 0;
  int m_status = 0;
  std::string_view m_problem;
};

/// What a count has brought.
struct CountResult {
  std::int64_t total = 0;
  std::optional<std::int64_t> before;
  std::optional<online::LostPages> lost;
  std::string problem;  ///< why the history was not written
};

std::vector<online::PageHistoryEntry> ReadHistory(const std::filesystem::path& file) {
  constexpr std::uintmax_t kLargest = 4u << 20;
  return online::ParsePageHistory(ReadFile(file, kLargest).ValueOr(""), 0, std::chrono::local_seconds::max());
}

/// Why there is no total: an error status has none, whatever stands in the answer.
std::string FailureWords(const AwaitedRequests& requests, const Call& call) {
  if (WasInterrupted()) return "ended before the service answered";
  if (!requests.problem().empty())
    return fmt::format("the service gave no number of pages ({})", call.strings.Text(requests.problem()));
  return fmt::format("the service gave no number of pages (status {})", requests.status());
}

CountResult Count(const Call& call, shell::Globals& globals, shell::Explain& explain) {
  constexpr int kFirstErrorStatus = 400;
  const platform::SystemClock clock;
  platform::CurlHttp http;
  AwaitedRequests requests(http);
  online::PageTotals& pages = globals.onlineMemory.pages;
  CountResult result;
  // Who asks for a count gets one, also when the program itself does not watch.
  online::PageMonitor monitor(
      {shell::OwnSession(globals), requests, clock, globals.folders.PagesNumHistoryFile,
       [](std::chrono::system_clock::time_point moment) { return tools::HistoryTime(moment); },
       [&globals] {
         return online::PageRules{true, globals.settings.AlertOnDelPageNum};
       },
       [&result](const online::LostPages& lost) { result.lost = lost; },
       [&result](const std::string& problem) { result.problem = problem; }});
  // A token that has run out costs the first count and is renewed by it.
  for (int tries = 0; tries < 2 && pages.countedAt == 0 && !WasInterrupted(); ++tries) {
    online::PageMonitor::WantPageCount(globals.onlineMemory);
    monitor.TimerRun();
    requests.Finish();
  }
  explain.Note(fmt::format("monitor: {} requests", requests.count()));
  if (pages.countedAt == 0 || requests.status() >= kFirstErrorStatus)
    throw Stop(kWorkFailed, FailureWords(requests, call));
  const auto history = ReadHistory(globals.folders.PagesNumHistoryFile);
  if (!history.empty()) result.before = history.back().total;
  result.total = pages.current;
  pages.previous = result.before.value_or(0);
  monitor.ShowLostPageAlert();
  return result;
}

void PrintCount(const CountResult& count, bool json) {
  if (json) {
    const auto change = count.before ? nlohmann::json(count.total - *count.before) : nlohmann::json();
    const nlohmann::json object = {
        {"total", count.total},
        {"before", count.before ? nlohmann::json(*count.before) : nlohmann::json()},
        {"change", change},
        {"isLost", count.lost.has_value()}};
    return WriteOutput("", object.dump(2) + "\n");
  }
  const std::string change =
      count.before ? fmt::format(" ({:+} since the last line of the history)", count.total - *count.before)
                   : "";
  WriteOutput("", fmt::format("{} pages{}\n", count.total, change));
}

int CountOnce(const Call& call, bool json) {
  WatchInterrupts();
  shell::Globals globals = shell::InitGlobals(call.root, platform::SystemClock());
  if (!globals.settingsProblem.empty()) PrintError(globals.settingsProblem);
  if (globals.settings.OnlineOneNoteAccessToken.empty())
    throw Stop(kWorkFailed, "nobody is signed in; see `quill signin --help`");
  shell::Explain explain = MakeExplain(call);
  const CountResult count = Count(call, globals, explain);
  PrintCount(count, json);
  if (count.lost) {
    PrintError(call.strings.Format("msgPagesLost",
                                   {std::to_string(count.lost->before), std::to_string(count.lost->now)}));
  }
  if (!count.problem.empty()) throw Stop(kWorkFailed, count.problem);
  return kDone;
}

}  // namespace

void AddMonitor(CLI::App& app, Call& call) {
  struct Options {
    bool once = false;
    bool json = false;
  };
  auto options = std::make_shared<Options>();
  CLI::App* monitor = app.add_subcommand(
      "monitor",
      "Count the pages in the user's online notebooks, tell the change since the last line of the history, "
      "and"
      " write a line when there is one. Warns when more pages are gone than the settings tolerate");
  monitor->add_flag("--once", options->once, "Count once, now; the tray program counts by itself")
      ->required();
  monitor->add_flag("--json", options->json, "One JSON object");
  monitor->callback([&call, options] { call.status = CountOnce(call, options->json); });
}

}  // namespace quill::cli
