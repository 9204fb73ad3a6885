#pragma once
#include <string_view>

namespace quill::shell {

/// The picture of a horizontal line (resources/images/HLine.png).
extern const std::string_view kHLinePng;

}  // namespace quill::shell
