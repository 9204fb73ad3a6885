#include "files/store/a4_section.h"

namespace quill::files {

extern const std::string_view kA4SectionFile;  // written by the build

std::string_view A4Section() {
  return kA4SectionFile;
}

}  // namespace quill::files
