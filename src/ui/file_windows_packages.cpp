#include "ui/file_windows_packages.h"

#include "shell/package_requests.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/packages/win_folder.h"

namespace quill::ui {

void AddPackageWindows(WindowFactory& windows, const shell::StringTable& strings, PanelMemory& panels) {
  windows.AddDialog<shell::PackageRequest>([&](const shell::PackageRequest& request, MWinFolder::Done done) {
    return new MWinFolder(strings, panels, request, std::move(done));
  });
}

}  // namespace quill::ui
