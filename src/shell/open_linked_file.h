#pragma once
#include <filesystem>

#include "shell/services.h"

namespace quill::shell {

/// Opens a file or folder that a page links to with the system's own program. Before a program or script the
/// user is asked, with its whole path. Tells when the system cannot open it. Command thread.
void OpenLinkedFile(Services& services, const std::filesystem::path& file);

}  // namespace quill::shell
