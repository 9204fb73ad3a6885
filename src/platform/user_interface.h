#pragma once
#include <any>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quill::platform {

/// What a save panel asks for.
struct SavePanel {
  std::string title;        ///< the panel's title, already in the user's language
  std::string defaultName;  ///< proposed file name; may be empty
  std::string extension;    ///< the one allowed extension, without the dot
};

/// What can be chosen in an open panel.
enum class OpenKind { Files, Folders };

/// What an open panel asks for.
struct OpenPanel {
  std::string title;                    ///< the panel's title, already in the user's language
  std::string message;                  ///< a line that says what to choose; may be empty
  OpenKind kind = OpenKind::Files;      ///< files or folders
  std::vector<std::string> extensions;  ///< allowed extensions, without the dot; empty: any
  bool several = false;                 ///< more than one may be chosen
  std::filesystem::path folder;         ///< where the panel begins; empty: where the user was last
};

/// What `MWinInput` asks for: one line of text.
struct TextQuestion {
  std::string title;    ///< the window's title
  std::string label;    ///< what is asked, beside the field
  std::string initial;  ///< the text that the field begins with, selected
};

/// A long job as the user sees it. It becomes visible half a second after it began and goes with the object.
class Progress {
 public:
  virtual ~Progress() = default;

  /// How far the job is, 0 to 1 (negative: unknown), and what it works on. Cheap: call it as often as wanted.
  virtual void Set(double fraction, std::string_view detail) = 0;

  /// True once the user has pressed Cancel, or the program quits.
  virtual bool Cancelled() const = 0;
};

/// The screen as a command sees it. Called from the command thread; each call that asks returns when the user
/// has answered. Backends without a screen answer from what they were given and write the rest down.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  /// Shows a modal alert with this text and one default button.
  virtual void ShowMessage(std::string_view text) = 0;

  /// Asks with the buttons "NO" (first, the default) and "YES". True for YES.
  virtual bool AskYesNo(std::string_view question) = 0;

  /// Asks where to save. Nothing when the user cancelled. Folders can be made in the panel, and an
  /// existing file is only returned after the user has agreed to replace it.
  virtual std::optional<std::filesystem::path> AskSavePath(const SavePanel& panel) = 0;

  /// Asks which files or folders to open. Empty when the user cancelled.
  virtual std::vector<std::filesystem::path> AskOpenPaths(const OpenPanel& panel) = 0;

  /// Asks for a line of text. Nothing when the user cancelled.
  virtual std::optional<std::string> AskText(const TextQuestion& question) = 0;

  /// Shows that a job is under way, with Cancel. `title` says what is done.
  virtual std::unique_ptr<Progress> BeginProgress(std::string_view title) = 0;

  /// Shows the window that belongs to the request's type and returns at once. Any thread. A type without a
  /// window does nothing.
  virtual void ShowWindow(std::any request) = 0;

  /// Shows that window and waits until it is closed. Empty when the user cancelled. Use `RunDialog`.
  virtual std::any RunWindow(std::any request) = 0;
};

/// Shows the dialog of this request and returns the user's answer, nothing when it was cancelled. A request
/// type names its answer: `struct MyRequest { using Answer = …; }`.
template <class Request>
std::optional<typename Request::Answer> RunDialog(UserInterface& ui, Request request) {
  std::any answer = ui.RunWindow(std::any(std::move(request)));
  if (auto* given = std::any_cast<typename Request::Answer>(&answer)) return std::move(*given);
  return std::nullopt;
}

}  // namespace quill::platform
