#pragma once
#include <filesystem>

namespace quill::files {

/// Whether opening a file may run something that was written by somebody else: programs, scripts, installers,
/// starters, documents made for macros, what is marked executable, and what is no ordinary file. Looks at the
/// file that symbolic links lead to. Plain documents and folders are not risky, whatever their marks are.
bool IsRiskyFile(const std::filesystem::path& file);

}  // namespace quill::files
