#pragma once
#include <any>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <typeindex>
#include <vector>

#include "platform/desktop.h"
#include "platform/pasteboard.h"
#include "platform/script/script_step.h"
#include "platform/user_interface.h"
#include "platform/workspace.h"

namespace quill::platform::recording {

/// What lies on the recorded pasteboard, or is selected in the recorded application.
struct Contents {
  std::optional<std::string> html;
  std::optional<std::string> text;
  std::optional<std::string> png;

  bool operator==(const Contents&) const = default;
};

/// One paste as the recorded application received it.
struct Paste {
  Contents contents;
  bool replaceSelection = false;  ///< Delete was pressed before, with no blank typed
};

/// A whole desktop in memory: scripts are parsed and "performed" on a selection that the caller sets, and
/// every step is written down, so that a command asserts as one string. It also stands behind commands
/// that work on files. Not thread-safe.
class Recording final : public Desktop, public Pasteboard, public UserInterface, public Workspace {
 public:
  Recording() = default;
  explicit Recording(Contents selection) : m_selection(std::move(selection)) {}

  // What the recorded world holds.
  void SetSelection(Contents selection) { m_selection = std::move(selection); }
  /// What Command+C copies after Command+Shift+T.
  void SetPageTitle(std::string title) { m_pageTitle = std::move(title); }
  void SetClipboard(Contents contents) { m_clipboard = std::move(contents); }
  void Install(std::string bundlePath) { m_applications.insert(std::move(bundlePath)); }
  void SetIdleSeconds(std::int64_t seconds) { m_idleSeconds = seconds; }
  /// What the next save panels answer, in order; afterwards they are cancelled.
  void AnswerSavePanel(std::optional<std::filesystem::path> path) { m_savePaths.push_back(std::move(path)); }
  /// What the next open panels, text questions and yes-no questions answer, in order; afterwards they are
  /// cancelled, or answered with NO.
  void AnswerOpenPanel(std::vector<std::filesystem::path> paths) { m_openPaths.push_back(std::move(paths)); }
  void AnswerText(std::optional<std::string> text) { m_texts.push_back(std::move(text)); }
  void AnswerYesNo(bool yes) { m_yesNo.push_back(yes); }
  /// What the next dialog of this request type answers; afterwards it is cancelled.
  template <class Request>
  void AnswerDialog(std::optional<typename Request::Answer> answer) {
    m_dialogAnswers[std::type_index(typeid(Request))].push_back(answer ? std::any(std::move(*answer))
                                                                       : std::any());
  }
  /// The user cancels a long job after this many steps.
  void CancelProgressAfter(int steps) { m_progressSteps = steps; }
  /// Files and addresses cannot be opened or revealed, for this reason.
  void RefuseToOpen(std::string reason) { m_openProblem = std::move(reason); }
  void SetOneNoteRunning(bool running) { m_oneNoteRunning = running; }
  /// The next scripts fail, one problem each (`None` lets one through).
  void FailScripts(std::vector<ScriptProblem> problems) { m_problems = std::move(problems); }
  /// The next reads of the pasteboard yield nothing, as if the copy had not arrived.
  void LoseCopies(int count) { m_lostCopies = count; }
  /// Writes this name instead of the steps when the script is run.
  void NameScript(std::string script, std::string name) { m_names[std::move(script)] = std::move(name); }

  // What was seen.
  const std::string& transcript() const { return m_transcript; }
  const std::vector<Paste>& pastes() const { return m_pastes; }
  const std::vector<std::string>& messages() const { return m_messages; }
  const std::vector<SavePanel>& savePanels() const { return m_savePanels; }
  /// The requests of the windows and dialogs that were shown, in order.
  const std::vector<std::any>& windows() const { return m_windows; }
  const Contents& clipboard() const { return m_clipboard; }
  bool clipboardRestored() const { return m_restored; }

  // Desktop
  ScriptResult RunScript(std::string_view script) override;
  bool ApplicationInstalled(std::string_view bundlePath) override;
  bool OneNoteRunning() override { return m_oneNoteRunning; }
  std::int64_t GetIdleSeconds() override { return m_idleSeconds; }

  // Pasteboard
  void Clear() override;
  bool WaitForNewContents(std::chrono::milliseconds deadline) override;
  Result<std::string, ReadProblem> Read(Flavour flavour) override;
  bool Write(Flavour flavour, std::string_view bytes) override;
  PasteboardSnapshot Save() override;
  void Restore(const PasteboardSnapshot& snapshot) override;
  std::vector<std::string> FlavourNames() override;

  // UserInterface
  void ShowMessage(std::string_view text) override;
  bool AskYesNo(std::string_view question) override;
  std::optional<std::filesystem::path> AskSavePath(const SavePanel& panel) override;
  std::vector<std::filesystem::path> AskOpenPaths(const OpenPanel& panel) override;
  std::optional<std::string> AskText(const TextQuestion& question) override;
  std::unique_ptr<Progress> BeginProgress(std::string_view title) override;
  void ShowWindow(std::any request) override;
  std::any RunWindow(std::any request) override;

  // Workspace
  Status<> OpenUrl(std::string_view url) override;
  Status<> OpenFile(const std::filesystem::path& file) override;
  Status<> Reveal(const std::filesystem::path& file) override;

 private:
  void Record(std::string_view entry);
  void Perform(const script::Program& program);
  void PressCopy();
  Status<> RecordOpening(std::string_view entry);

  Contents m_selection;
  Contents m_clipboard;
  std::string m_pageTitle;
  std::set<std::string, std::less<>> m_applications;
  std::vector<std::optional<std::filesystem::path>> m_savePaths;
  std::deque<std::vector<std::filesystem::path>> m_openPaths;
  std::deque<std::optional<std::string>> m_texts;
  std::deque<bool> m_yesNo;
  std::map<std::type_index, std::deque<std::any>> m_dialogAnswers;
  std::vector<std::any> m_windows;
  std::optional<int> m_progressSteps;
  std::string m_openProblem;
  bool m_oneNoteRunning = true;
  std::vector<ScriptProblem> m_problems;
  std::map<std::string, std::string, std::less<>> m_names;
  std::int64_t m_idleSeconds = -1;
  int m_lostCopies = 0;
  bool m_caretInTitle = false;
  bool m_hasNewContents = false;
  bool m_restored = false;
  std::string m_transcript;
  std::vector<Paste> m_pastes;
  std::vector<std::string> m_messages;
  std::vector<SavePanel> m_savePanels;
};

}  // namespace quill::platform::recording
