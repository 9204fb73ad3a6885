#pragma once
#include <string_view>

namespace quill::files {

/// The bytes of a section file (`.one`) with one blank page of A4 size, made when the program was built.
/// Lives as long as the program. docs/section-file.md says what is in it.
std::string_view A4Section();

}  // namespace quill::files
