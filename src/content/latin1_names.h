#pragma once
#include <cstddef>
#include <string_view>

namespace quill::content {

/// A named reference without its "&": its character and how long name and ";" are; length 0 for none.
struct Latin1Match {
  char32_t code = 0;
  std::size_t length = 0;
};

/// Which of the 96 names of HTML 4's Latin-1 set the text begins with, ";" included. Case-sensitive. O(1).
Latin1Match MatchLatin1Name(std::string_view text);

}  // namespace quill::content
