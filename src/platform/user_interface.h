#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quill::platform {

/// What a save panel asks for.
struct SavePanel {
  std::string title;        ///< the panel's title, already in the user's language
  std::string defaultName;  ///< proposed file name; may be empty
  std::string extension;    ///< the one allowed extension, without the dot
};

/// The screen as a command sees it. Called from the command thread; each call returns when the user
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
};

}  // namespace quill::platform
