#include "cli/online_terminal.h"

#include "cli/console.h"
#include "cli/interrupts.h"
#include "online/notebook_list.h"
#include "online/online_requests.h"

namespace quill::cli {
namespace {

/// Control+C is the Cancel of a terminal.
class InterruptProgress final : public platform::Progress {
 public:
  void Set(double, std::string_view) override {}
  bool Cancelled() const override { return WasInterrupted(); }
};

nlohmann::json AsJson(const std::vector<online::PaneHeading>& headings) {
  nlohmann::json list = nlohmann::json::array();
  for (const online::PaneHeading& heading : headings)
    list.push_back({{"level", heading.level}, {"text", heading.text}, {"link", heading.link}});
  return list;
}

nlohmann::json AsJson(const std::vector<online::NotebookRow>& notebooks) {
  nlohmann::json list = nlohmann::json::array();
  for (const online::NotebookRow& row : notebooks) {
    list.push_back({{"name", row.name},
                    {"clientLink", row.clientLink},
                    {"webLink", row.webLink},
                    {"isDefault", row.kind == online::NotebookKind::Default},
                    {"isDeleted", row.kind == online::NotebookKind::Deleted}});
  }
  return list;
}

}  // namespace

std::string OnlineTerminal::Text(std::string_view key, const std::vector<std::string>& arguments) {
  return m_call.strings.Format(key, arguments);
}

bool OnlineTerminal::Ask(std::string_view question) {
  if (!m_run.yes) m_run.messages.push_back(std::string(question) + " (--yes to agree)");
  return m_run.yes;
}

std::optional<online::SignInResult> OnlineTerminal::ShowSignIn(online::SignInMode) {
  m_run.messages.emplace_back("Sign in with `quill signin`, then run the command again.");
  return std::nullopt;
}

std::optional<std::filesystem::path> OnlineTerminal::AskExportPath(std::string_view, std::string_view) {
  return m_run.file;
}

void OnlineTerminal::ShowWindow(std::any request) {
  if (const auto* pane = std::any_cast<online::NavigatePaneRequest>(&request))
    m_run.list = AsJson(pane->headings);
  if (const auto* window = std::any_cast<online::NotebookListRequest>(&request))
    m_run.list = AsJson(online::Json2NotebookListView(window->notebooksBody, window->recentBody));
}

Status<> OnlineTerminal::OpenUrl(std::string_view url) {
  m_run.address = url;
  return Done();
}

std::unique_ptr<platform::Progress> OnlineTerminal::BeginProgress() {
  return std::make_unique<InterruptProgress>();
}

}  // namespace quill::cli
