#pragma once
#include <filesystem>

namespace quill::files {

/// Whether OneNote for Mac can open a section file: false for one in the alternative packaging (told by the
/// file-format GUID in its bytes 48 to 63), for one shorter than 64 bytes, and for what is no file or cannot
/// be read. Nothing else of the file is looked at.
bool IsMacSupportedOneFile(const std::filesystem::path& file);

}  // namespace quill::files
