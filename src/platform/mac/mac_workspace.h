#pragma once
#include "platform/workspace.h"

namespace quill::platform::mac {

/// Files and addresses through `NSWorkspace`, which is asked on the main thread: a call from the command
/// thread waits for it with a limit and fails when that passes.
class MacWorkspace final : public Workspace {
 public:
  /// The system takes an address as a URL object only. A text that such an object refuses, or would change,
  /// is not opened.
  Status<> OpenUrl(std::string_view url) override;
  Status<> OpenFile(const std::filesystem::path& file) override;
  Status<> Reveal(const std::filesystem::path& file) override;
};

}  // namespace quill::platform::mac
