#include "shell/selection_bridge.h"

#include <fmt/format.h>

#include "base/atomic_file.h"
#include "content/text_between.h"

namespace quill::shell {
namespace {

using platform::Flavour;
using platform::ReadProblem;
using platform::ScriptProblem;

constexpr int kCopyTries = 3;
constexpr std::uintmax_t kLargestPicture = 256u << 20;

/// True when a further try of the same copy may succeed.
bool AnotherTryMayHelp(ScriptProblem problem) {
  return problem == ScriptProblem::None || problem == ScriptProblem::NothingCopied ||
         problem == ScriptProblem::NoAnswer;
}

std::string_view ReadProblemKey(ReadProblem problem) {
  switch (problem) {
    case ReadProblem::Absent:
      return "";
    case ReadProblem::OwnerSilent:
      return "errClipboardSilent";
    case ReadProblem::TooLarge:
      return "errClipboardTooLarge";
  }
  return "";
}

}  // namespace

SelectionBridge::SelectionBridge(Services& services, Globals& globals)
    : m_services(services), m_globals(globals) {}

SelectionBridge::~SelectionBridge() {
  if (!m_borrowed || m_keep) return;
  const Explain::Scope scope(m_services.explain, "restore clipboard");
  m_services.pasteboard.Restore(m_before);
}

void SelectionBridge::Borrow() {
  if (m_borrowed) return;
  const Explain::Scope scope(m_services.explain, "save clipboard");
  m_before = m_services.pasteboard.Save();
  m_borrowed = true;
  m_services.explain.Note(fmt::format("saved the clipboard: {} flavours{}", m_before.flavours.size(),
                                      m_before.complete ? "" : ", some were not handed over in time"));
}

platform::ScriptResult SelectionBridge::RunAppleScript(std::string_view script) {
  platform::ScriptResult result = m_services.desktop.RunScript(script);
  m_problem = result.problem;
  m_problemDetail = result.detail;
  if (!result.ok()) {
    const std::string words =
        fmt::format("script: {} {}", platform::ScriptProblemKey(result.problem), result.detail);
    m_services.explain.Note(words);
    m_services.log.Write(words);
  }
  return result;
}

std::string SelectionBridge::CopyOnce(const std::string& script, Flavour flavour,
                                      std::chrono::microseconds wait) {
  Borrow();
  platform::Pasteboard& pasteboard = m_services.pasteboard;
  pasteboard.Clear();
  m_readProblemKey.clear();
  if (!RunAppleScript(script).ok() && !AnotherTryMayHelp(m_problem)) return {};
  // A script that says so has waited itself: the application is there and copied nothing.
  const bool waited = m_problem == ScriptProblem::NothingCopied;
  const auto deadline =
      waited ? std::chrono::milliseconds(0) : std::chrono::ceil<std::chrono::milliseconds>(wait);
  if (!pasteboard.WaitForNewContents(deadline)) {
    m_services.explain.Note(fmt::format("nothing new on the clipboard after {} ms", deadline.count()));
    return {};
  }
  Result<std::string, ReadProblem> read = pasteboard.Read(flavour);
  if (!read.ok()) {
    m_readProblemKey = ReadProblemKey(read.error());
    m_services.explain.Note(
        fmt::format("clipboard read: {}", m_readProblemKey.empty() ? "no such flavour" : m_readProblemKey));
    return {};
  }
  m_problem = ScriptProblem::None;
  m_services.explain.Note(fmt::format("copied {} bytes", read->size()));
  return std::move(*read);
}

std::string SelectionBridge::CopySelectionHtmlOnce() {
  const Explain::Scope scope(m_services.explain, "copy");
  return CopyOnce(m_globals.scripts.ScriptCopy, Flavour::Html,
                  std::chrono::microseconds(m_globals.settings.Perform_Timeout));
}

std::string SelectionBridge::CopySelectionHtml() {
  for (int i = 0; i < kCopyTries; ++i) {
    std::string html = CopySelectionHtmlOnce();
    if (!html.empty() || !AnotherTryMayHelp(m_problem) || !m_readProblemKey.empty()) return html;
  }
  return {};
}

std::string SelectionBridge::CopySelectionText() {
  const Explain::Scope scope(m_services.explain, "copy text");
  return CopyOnce(m_globals.scripts.ScriptCopy, Flavour::Text,
                  std::chrono::microseconds(m_globals.settings.Perform_Timeout));
}

std::string SelectionBridge::CopyPageLinkText() {
  return CopyOnce(m_globals.scripts.ScriptCopyPageLink, Flavour::Text, std::chrono::microseconds(0));
}

std::string SelectionBridge::ReadCopiedText() {
  return m_services.pasteboard.Read(Flavour::Text).ValueOr("");
}

bool SelectionBridge::Paste(Flavour flavour, std::string_view bytes, PasteMode mode) {
  const Explain::Scope scope(m_services.explain, "paste");
  Borrow();
  m_services.pasteboard.Clear();
  if (!m_services.pasteboard.Write(flavour, bytes)) {
    ShowMessage(m_services.strings.Text("errClipboardRefused"));
    return false;
  }
  const ScriptTable& scripts = m_globals.scripts;
  const platform::ScriptResult result = RunAppleScript(
      mode == PasteMode::ReplaceSelection ? scripts.ScriptPasteReplacing : scripts.ScriptPasteAtCaret);
  m_services.explain.Note(fmt::format("pasted {} bytes: {}", bytes.size(), result.ok() ? "done" : "failed"));
  if (!result.ok()) ShowMessage(m_services.strings.Text(platform::ScriptProblemKey(result.problem)));
  return result.ok();
}

bool SelectionBridge::PasteHtml(std::string_view html, PasteMode mode) {
  return Paste(Flavour::Html, html, mode);
}

bool SelectionBridge::PasteText(std::string_view text, PasteMode mode) {
  return Paste(Flavour::Text, text, mode);
}

bool SelectionBridge::PastePng(const std::filesystem::path& file, PasteMode mode) {
  const Result<std::string> bytes = ReadFile(file, kLargestPicture);
  if (!bytes.ok()) {
    ShowMessage(bytes.error());
    return false;
  }
  return PastePngBytes(*bytes, mode);
}

bool SelectionBridge::PastePngBytes(std::string_view png, PasteMode mode) {
  return Paste(Flavour::Png, png, mode);
}

bool SelectionBridge::PasteHtmlFragment(std::string_view fragment, PasteMode mode) {
  return PasteHtml(content::JoinFragment(content::kBuiltHead, fragment, content::kBuiltTail), mode);
}

platform::ScriptResult SelectionBridge::PressKeys(std::string_view key, std::string_view modifier1,
                                                  std::string_view modifier2) {
  return RunAppleScript(FillKeystroke(m_globals.scripts, key, modifier1, modifier2));
}

void SelectionBridge::LeaveTextOnClipboard(std::string_view text) {
  m_services.pasteboard.Clear();
  if (m_services.pasteboard.Write(Flavour::Text, text)) {
    KeepClipboard();
  } else {
    ShowMessage(m_services.strings.Text("errClipboardRefused"));
  }
}

void SelectionBridge::ShowMessage(std::string_view text) {
  m_services.ui.ShowMessage(text);
}

bool SelectionBridge::CopyFailed() const {
  return !m_readProblemKey.empty() ||
         (m_problem != ScriptProblem::None && m_problem != ScriptProblem::NothingCopied);
}

void SelectionBridge::ShowCopyProblem() {
  std::string_view key = m_readProblemKey;
  if (key.empty()) key = platform::ScriptProblemKey(m_problem);
  if (key.empty()) key = "msgLoadTextError";
  ShowMessage(m_services.strings.Format(key, {m_problemDetail}));
}

}  // namespace quill::shell
