#pragma once
#include <string>

namespace quill::section_file {

/// A section file with one blank page of A4 size. Always the same bytes.
std::string OneSection();

}  // namespace quill::section_file
