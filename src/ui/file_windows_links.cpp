#include "ui/file_windows_links.h"

#include <memory>

#include "ui/kit/file_panels.h"
#include "ui/kit/window_factory.h"
#include "ui/windows/cloud_files/win_cloud_file_attachment.h"
#include "ui/windows/variable_link/win_var_link.h"

namespace quill::ui {

void AddLinkWindows(WindowFactory& windows, const shell::StringTable& strings) {
  windows.AddPlainDialog<shell::CloudFilesRequest, MWinCloudFileAttachment>(strings);
  windows.AddDialog<shell::VarLinkRequest>([&strings, panels = std::make_shared<PanelMemory>()](
                                               const shell::VarLinkRequest& request, MWinVarLink::Done done) {
    return new MWinVarLink(strings, *panels, request, std::move(done));
  });
}

}  // namespace quill::ui
