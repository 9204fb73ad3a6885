#pragma once
#include <string_view>

namespace quill::files {

/// Whether a text that came from outside can be the name of one file inside a folder: not empty, not "." or
/// "..", without a slash and without a zero byte, at most 255 bytes (the limit of the file systems of macOS
/// and Linux). A name that is not would reach outside the folder or could not be made.
bool IsFileName(std::string_view name);

}  // namespace quill::files
