#pragma once
#include "online/online_host.h"
#include "shell/globals.h"
#include "shell/services.h"

namespace quill::shell {

/// The program around the online commands: OneNote's keys, the screen, the string table. Lives for one
/// command on the command thread; refers to what it is made with.
class OnlineBridge final : public online::OnlineHost {
 public:
  OnlineBridge(Services& services, Globals& globals, const Endpoints& endpoints)
      : m_services(services), m_globals(globals), m_endpoints(endpoints) {}

  std::string PageLink() override;
  void InsertHtml(std::string_view fragment) override;
  std::string Text(std::string_view key, const std::vector<std::string>& arguments) override;
  void Say(std::string_view text) override;
  bool Ask(std::string_view question) override;
  std::optional<online::SignInResult> ShowSignIn(online::SignInMode mode) override;
  std::optional<std::filesystem::path> AskExportPath(std::string_view title,
                                                     std::string_view extension) override;
  void ShowWindow(std::any request) override;
  Status<> OpenUrl(std::string_view url) override;
  std::unique_ptr<platform::Progress> BeginProgress() override;
  void LogContent(std::string_view what, std::string_view content) override;
  std::optional<std::filesystem::path> PageLogFile() override;
  void Explain(std::string_view step) override;

 private:
  Services& m_services;
  Globals& m_globals;
  const Endpoints& m_endpoints;
};

}  // namespace quill::shell
