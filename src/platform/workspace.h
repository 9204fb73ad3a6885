#pragma once
#include <filesystem>
#include <string_view>

#include "base/result.h"

namespace quill::platform {

/// Hands files and addresses to the system's own programs. Called from the command thread; returns as soon as
/// the system has taken the order, which does not mean that a window is there. A failure says why, for the
/// user.
class Workspace {
 public:
  virtual ~Workspace() = default;

  /// Opens an address with the program that the system has for its scheme. The text is handed on as it
  /// stands, never through a URL class.
  virtual Status<> OpenUrl(std::string_view url) = 0;

  /// Opens a file or folder with the program that the system has for it.
  virtual Status<> OpenFile(const std::filesystem::path& file) = 0;

  /// Shows a file or folder, selected, in the file browser.
  virtual Status<> Reveal(const std::filesystem::path& file) = 0;
};

}  // namespace quill::platform
