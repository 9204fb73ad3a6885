#include "shell/online_bridge.h"

#include "content/text_between.h"
#include "shell/onenote_main.h"
#include "shell/selection_bridge.h"
#include "shell/sign_in_request.h"

namespace quill::shell {
namespace {

constexpr std::string_view kEmptyParagraphs = "<p></p><p></p>";
constexpr std::string_view kPageLogName = "LogData.dat";

}  // namespace

std::string OnlineBridge::PageLink() {
  return SelectionBridge(m_services, m_globals).CopyPageLinkText();
}

void OnlineBridge::InsertHtml(std::string_view fragment) {
  std::string html(content::kBuiltHead);
  html.append(fragment).append(kEmptyParagraphs).append(content::kBuiltTail);
  NSOneNoteMain(m_services, m_globals).RunInsertHtml(html);
}

std::string OnlineBridge::Text(std::string_view key, const std::vector<std::string>& arguments) {
  return m_services.strings.Format(key, arguments);
}

void OnlineBridge::Say(std::string_view text) {
  m_services.ui.ShowMessage(text);
}

bool OnlineBridge::Ask(std::string_view question) {
  return m_services.ui.AskYesNo(question);
}

std::optional<online::SignInResult> OnlineBridge::ShowSignIn(online::SignInMode mode) {
  return platform::RunDialog(m_services.ui, SignInRequest{m_endpoints, mode});
}

std::optional<std::filesystem::path> OnlineBridge::AskExportPath(std::string_view title,
                                                                 std::string_view extension) {
  return m_services.ui.AskSavePath({std::string(title), {}, std::string(extension)});
}

void OnlineBridge::ShowWindow(std::any request) {
  m_services.ui.ShowWindow(std::move(request));
}

Status<> OnlineBridge::OpenUrl(std::string_view url) {
  return m_services.workspace.OpenUrl(url);
}

std::unique_ptr<platform::Progress> OnlineBridge::BeginProgress() {
  return m_services.ui.BeginProgress(m_services.strings.Text("strAskingOneNote"));
}

void OnlineBridge::LogContent(std::string_view what, std::string_view content) {
  m_services.log.WriteContent(what, content);
}

std::optional<std::filesystem::path> OnlineBridge::PageLogFile() {
  if (!m_globals.exportLog) return std::nullopt;
  return m_globals.folders.DocumentsFolder / kPageLogName;
}

void OnlineBridge::Explain(std::string_view step) {
  m_services.explain.Note(step);
}

}  // namespace quill::shell
