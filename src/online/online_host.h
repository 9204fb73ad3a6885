#pragma once
#include <any>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "online/sign_in.h"
#include "platform/user_interface.h"

namespace quill::online {

/// What the online commands need of the program around them. Command thread; each call that asks returns when
/// the user has answered.
class OnlineHost {
 public:
  virtual ~OnlineHost() = default;

  /// What OneNote hands over as the link to the page that is open in it; "" when it hands over nothing.
  virtual std::string PageLink() = 0;

  /// Pastes a fragment at OneNote's caret. Tells what goes wrong itself.
  virtual void InsertHtml(std::string_view fragment) = 0;

  /// A text of the string table by its key, with {0}, {1}, … replaced.
  virtual std::string Text(std::string_view key, const std::vector<std::string>& arguments = {}) = 0;

  virtual void Say(std::string_view text) = 0;
  virtual bool Ask(std::string_view question) = 0;

  /// Shows the pages of a sign-in; nothing when the user closed their window first, or when they cannot be
  /// shown, which it has told then.
  virtual std::optional<SignInResult> ShowSignIn(SignInMode mode) = 0;

  virtual std::optional<std::filesystem::path> AskExportPath(std::string_view title,
                                                             std::string_view extension) = 0;

  /// Shows the window that belongs to the request's type.
  virtual void ShowWindow(std::any request) = 0;

  /// Opens an address in the default browser.
  virtual Status<> OpenUrl(std::string_view url) = 0;

  /// That the service is being asked; visible after half a second.
  virtual std::unique_ptr<platform::Progress> BeginProgress() = 0;

  /// Where page contents may be logged.
  virtual void LogContent(std::string_view what, std::string_view content) = 0;

  /// Where the page log goes; nothing while it is switched off.
  virtual std::optional<std::filesystem::path> PageLogFile() = 0;

  /// A step of the command, for whoever wants to know why it did what it did. Never a secret.
  virtual void Explain(std::string_view step) = 0;
};

}  // namespace quill::online
