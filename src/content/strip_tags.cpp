#include "content/strip_tags.h"

namespace quill::content {

std::string StripTags(std::string_view html) {
  std::string text;
  text.reserve(html.size());
  std::size_t at = 0;
  for (std::size_t open; (open = html.find('<', at)) != std::string_view::npos;) {
    const std::size_t close = html.find('>', open);
    if (close == std::string_view::npos || close == open + 1) break;
    text.append(html.substr(at, open - at));
    at = close + 1;
  }
  return text.append(html.substr(at));
}

}  // namespace quill::content
