#pragma once
#include "shell/command_table.h"

namespace quill::shell {

/// Gives OneNote's command "Copy Link to Page" its keys, which other commands press. On macOS only: elsewhere
/// the user is told that there is nothing to set up.
void InstallCopyLinkShortcut(CommandContext& context);

/// The same without asking which system this is.
void WriteCopyLinkShortcut(CommandContext& context);

}  // namespace quill::shell
