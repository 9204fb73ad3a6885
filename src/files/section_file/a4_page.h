#pragma once
#include "files/section_file/object_space.h"

namespace quill::section_file {

/// What OneNote shows of a page in a list ([MS-ONE], jcidPageMetaData). The page has it, and a copy of it the
/// section.
PropertySet PageMetadata();

/// A blank page of A4 size with a title to be typed ([MS-ONE], Page Object Space).
ObjectSpace A4Page();

}  // namespace quill::section_file
