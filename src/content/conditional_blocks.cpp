#include "content/conditional_blocks.h"

#include "content/find_text.h"

namespace quill::content {

std::string RemoveConditionalBlocks(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t at = 0;
  // A start ends in a blank, so it can only be complete, whatever was joined before, just after one.
  for (std::size_t blank; (blank = text.find(' ', at)) != std::string_view::npos;) {
    out.append(text.substr(at, blank + 1 - at));
    at = blank + 1;
    if (!out.ends_with(kConditionalStart)) continue;
    const std::size_t end = FindText(text, kConditionalEnd, at);
    if (end == std::string_view::npos) break;
    out.resize(out.size() - kConditionalStart.size());
    at = end + kConditionalEnd.size();
  }
  return out.append(text.substr(at));
}

}  // namespace quill::content
