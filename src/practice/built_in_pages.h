#pragma once
#include <vector>

#include "practice/page_store.h"

namespace quill::practice {

/// The pages that a new practice notebook has, read from the plug-in's resources.
std::vector<BuiltInPage> BuiltInPages();

}  // namespace quill::practice
