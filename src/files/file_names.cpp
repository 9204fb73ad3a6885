#include "files/file_names.h"

namespace quill::files {

bool IsFileName(std::string_view name) {
  constexpr std::size_t kLongestName = 255;
  if (name.empty() || name.size() > kLongestName || name == "." || name == "..") return false;
  return name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

}  // namespace quill::files
