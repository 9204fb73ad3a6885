#pragma once
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/pasteboard.h"
#include "shell/globals.h"
#include "shell/services.h"

namespace quill::shell {

/// Whether a paste takes the place of the selection or goes in at the caret.
enum class PasteMode { AtCaret, ReplaceSelection };

/// The keystroke and pasteboard primitives: the only way in which commands reach the other application.
/// Belongs to one command on the command thread.
///
/// The user's own clipboard is saved before the first use of the pasteboard and put back when the object
/// goes (see `Pasteboard::Restore`), unless `KeepClipboard` was called.
class SelectionBridge {
 public:
  SelectionBridge(Services& services, Globals& globals);
  ~SelectionBridge();
  SelectionBridge(const SelectionBridge&) = delete;
  SelectionBridge& operator=(const SelectionBridge&) = delete;

  /// Runs a script. Its failure is kept for `ProblemText`, noted for `--explain`, and otherwise ignored:
  /// what follows finds nothing on the pasteboard.
  platform::ScriptResult RunAppleScript(std::string_view script);

  /// Copies the selection and returns its HTML: one try. Empty when there is none.
  std::string CopySelectionHtmlOnce();

  /// As above, up to three tries; stops early when another try cannot help (no window, no permission,
  /// focus lost).
  std::string CopySelectionHtml();

  /// Copies the selection and returns its plain text: one try.
  std::string CopySelectionText();

  /// Asks for the link to the current page (Control+Command+P) and returns its plain text.
  std::string CopyPageLinkText();

  /// The plain text that lies beside the HTML of the last copy; empty when there is none.
  std::string ReadCopiedText();

  /// Each puts one form on the pasteboard and pastes it. False, with the message already shown, when the
  /// keys could not be sent or the pasteboard refused.
  bool PasteHtml(std::string_view html, PasteMode mode);
  bool PasteText(std::string_view text, PasteMode mode);
  bool PastePng(const std::filesystem::path& file, PasteMode mode);
  bool PastePngBytes(std::string_view png, PasteMode mode);
  /// Wraps the fragment in a document of the program's own and pastes it.
  bool PasteHtmlFragment(std::string_view fragment, PasteMode mode);

  /// Sends one key with one or two modifiers ("command", "shift").
  platform::ScriptResult PressKeys(std::string_view key, std::string_view modifier1,
                                   std::string_view modifier2 = {});

  /// Leaves this text on the clipboard as the command's result.
  void LeaveTextOnClipboard(std::string_view text);

  /// From here on the clipboard's contents are the command's result.
  void KeepClipboard() { m_keep = true; }

  /// A modal alert with this text.
  void ShowMessage(std::string_view text);

  /// True when the last copy failed; false when it brought nothing because nothing of that form was there.
  bool CopyFailed() const;

  /// Tells the user, in words to act on, why the last copy brought nothing.
  void ShowCopyProblem();

 private:
  void Borrow();
  bool Paste(platform::Flavour flavour, std::string_view bytes, PasteMode mode);
  std::string CopyOnce(const std::string& script, platform::Flavour flavour, std::chrono::microseconds wait);

  Services& m_services;
  Globals& m_globals;
  platform::PasteboardSnapshot m_before;
  platform::ScriptProblem m_problem = platform::ScriptProblem::None;
  std::string m_problemDetail;
  std::string m_readProblemKey;
  bool m_borrowed = false;
  bool m_keep = false;
};

}  // namespace quill::shell
