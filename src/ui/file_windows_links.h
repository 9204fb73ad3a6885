#pragma once
#include "shell/string_table.h"

namespace quill::ui {

class WindowFactory;

/// Adds the dialogs of the commands for links to files.
void AddLinkWindows(WindowFactory& windows, const shell::StringTable& strings);

}  // namespace quill::ui
