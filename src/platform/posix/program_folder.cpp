#include "platform/posix/program_folder.h"

#include <system_error>

namespace quill::platform {

std::filesystem::path ProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace quill::platform
