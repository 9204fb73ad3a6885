#pragma once
#include <string_view>
#include <vector>

#include "practice/page_store.h"

namespace quill::practice {

/// The pages that a new practice notebook has.
std::vector<BuiltInPage> BuiltInPages();

/// The file resources/practice/pages/NAME.htm; "" when there is none.
std::string_view BuiltInPageFile(std::string_view name);

}  // namespace quill::practice
