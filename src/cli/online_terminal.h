#pragma once
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "online/online_host.h"

namespace quill::cli {

/// What the call gives to an online command, and what the command left.
struct OnlineRun {
  std::string link;
  std::optional<std::string> file;  ///< the answer to a save panel
  bool yes = false;                 ///< the answer to every question

  std::vector<std::string> messages;
  std::optional<std::string> html;     ///< what would have been pasted
  std::optional<std::string> address;  ///< what would have been opened
  nlohmann::json list;                 ///< what a window would have shown; null without one
};

/// The surroundings of an online command without a screen: answers come from the call, results are kept.
class OnlineTerminal final : public online::OnlineHost {
 public:
  OnlineTerminal(const Call& call, OnlineRun& run, shell::Explain& explain)
      : m_call(call), m_run(run), m_explain(explain) {}

  std::string PageLink() override { return m_run.link; }
  void InsertHtml(std::string_view fragment) override { m_run.html = fragment; }
  std::string Text(std::string_view key, const std::vector<std::string>& arguments) override;
  void Say(std::string_view text) override { m_run.messages.emplace_back(text); }
  bool Ask(std::string_view question) override;
  std::optional<online::SignInResult> ShowSignIn(online::SignInMode mode) override;
  std::optional<std::filesystem::path> AskExportPath(std::string_view title,
                                                     std::string_view extension) override;
  void ShowWindow(std::any request) override;
  Status<> OpenUrl(std::string_view url) override;
  std::unique_ptr<platform::Progress> BeginProgress() override;
  void LogContent(std::string_view, std::string_view) override {}
  std::optional<std::filesystem::path> PageLogFile() override { return std::nullopt; }
  void Explain(std::string_view step) override { m_explain.Note(step); }

 private:
  const Call& m_call;
  OnlineRun& m_run;
  shell::Explain& m_explain;
};

}  // namespace quill::cli
