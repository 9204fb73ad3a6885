#pragma once

namespace quill::shell {
class StringTable;
}

namespace quill::ui {

struct PanelMemory;
class WindowFactory;

/// Adds the dialog of `shell/package_requests.h`. What is passed in must outlive the factory. GUI thread.
void AddPackageWindows(WindowFactory& windows, const shell::StringTable& strings, PanelMemory& panels);

}  // namespace quill::ui
