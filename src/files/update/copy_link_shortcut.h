#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/process_runner.h"

namespace quill::files {

/// The command that gives OneNote's menu entry of this title the keys Control+Command+P. It replaces all keys
/// that the user has given to OneNote's menu.
std::vector<std::string> CopyLinkShortcutCommand(std::string_view title);

/// Where the keys that the user had given before are kept, in the support folder; a number follows from the
/// second on.
inline constexpr std::string_view kFormerShortcutsFile = "OneNoteKeyEquivalents.txt";

/// Writes the former keys down, where there were some, and then gives the keys. Nothing is changed when the
/// former ones cannot be saved. The failure says what did not work.
Status<> InstallCopyLinkShortcut(platform::ProcessRunner& runner, std::string_view title,
                                 const std::filesystem::path& supportFolder);

}  // namespace quill::files
