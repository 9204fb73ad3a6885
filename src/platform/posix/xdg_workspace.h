#pragma once
#include "platform/workspace.h"

namespace quill::platform {

/// Files and addresses through the freedesktop.org tools: `xdg-open`, and the file manager's D-Bus interface
/// org.freedesktop.FileManager1 (by `dbus-send`) to show a file selected; without it the folder is opened.
class XdgWorkspace final : public Workspace {
 public:
  Status<> OpenUrl(std::string_view url) override;
  Status<> OpenFile(const std::filesystem::path& file) override;
  Status<> Reveal(const std::filesystem::path& file) override;
};

/// The "file://" address of an absolute path, percent-escaped as RFC 8089 wants it.
std::string FileUrl(const std::filesystem::path& file);

}  // namespace quill::platform
