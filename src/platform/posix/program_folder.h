#pragma once
#include <filesystem>

namespace quill::platform {

/// The folder of the running program, without symbolic links; empty where the system does not tell.
std::filesystem::path ProgramFolder();

}  // namespace quill::platform
